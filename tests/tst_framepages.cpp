// The pages of every module: name and comment, addresses.
#include "boxrecorder.h"
#include "pagefixture.h"
#include "recordinghost.h"
#include "rows.h"
#include "saddrmapwgt.h"
#include "sgeneralwgt.h"
#include "simpleextendpar.h"
#include "simulatedbase.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QSpinBox>
#include <QTextEdit>

Q_DECLARE_METATYPE(IoMap)

namespace {

const QString owner = QStringLiteral("plc");
const QString smiley = QStringLiteral("\U0001F600"); // two halves, four bytes

QString letters(int count)
{
    return QStringLiteral("a").repeated(count);
}

SimpleExtendPar moduleWith(const IoMap &input, const IoMap &output = {})
{
    SimpleExtendPar par;
    par.memoryOwner = owner;
    par.inMap = input;
    par.outMap = output;
    return par;
}

} // namespace

class TestFramePages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }
    void cleanup()
    {
        recordingHost() = RecordingHost();
        simulatedhost::resetBase();
    }

    void general_data()
    {
        // before: the comment; the bar is the cursor
        const Rows<QString, QString, QString> row("before", "pasted", "saved");
        const QString inside = letters(100) + '|' + letters(150);
        row("too much into an empty comment", "|", letters(300), letters(250) + '|');
        row("into the middle of a full comment", inside, "b", inside);
        row("before a full comment", '|' + letters(250), "bcd", '|' + letters(250));
        row("up to the limit in bytes", letters(248) + '|', "é", letters(248) + "é|");
        row("beyond the limit in bytes", letters(249) + '|', "é", letters(249) + '|');
        row("no half of a pair stays", letters(247) + '|', smiley, letters(247) + '|');
        row("a book", "|end", letters(3'000'000), letters(247) + "|end");
        row("unedited line ends stay", "|one\r\ntwo", "", "|one\r\ntwo");
        row("a longer comment is cut at its end", '|' + letters(260) + "b", "", '|' + letters(250));
        row("a pair at the cut goes", '|' + letters(248) + smiley, "", '|' + letters(248));
    }
    void general()
    {
        QFETCH(QString, before);
        QFETCH(QString, pasted);
        SimpleExtendPar par;
        par.objName = letters(30); // longer than the page lets anybody type
        par.comment = QString(before).remove('|');
        SGeneralWgt page(&par, nullptr, nullptr);
        auto *comment = child<QTextEdit>(page, "commentEdit");
        QTextCursor place = comment->textCursor();
        place.setPosition(before.indexOf('|'));
        comment->setTextCursor(place);
        QGuiApplication::clipboard()->setText(pasted);
        comment->paste();
        QVERIFY(page.saveData());
        QCOMPARE(par.objName, letters(30));
        QTEST(par.comment.insert(comment->textCursor().position(), '|'), "saved");

        child<QLineEdit>(page, "nameEdit")
            ->setText(smiley + QChar(0xD83D) + letters(20) + smiley); // halves in two places
        comment->setPlainText("new");
        QVERIFY(page.saveData());
        QCOMPARE(par.objName + par.comment, smiley + letters(20) + "new");
    }

    void defaultsAreAskedForOnce()
    {
        SimpleExtendPar par;
        SimpleExtendPar factory;
        par.objName = "mine";
        factory.objName = "factory";
        SGeneralWgt page(&par, nullptr, nullptr);
        SimpleExtendPar *answer = nullptr;
        int asked = 0;
        edit(page, "defaultsButton"); // nobody listens
        connect(&page, &SGeneralWgt::signal_requestDefaultPar, this, [&] {
            ++asked;
            return answer;
        });
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_btnDefault_clicked")); // nothing to be had
        QCOMPARE(child<QLineEdit>(page, "nameEdit")->text(), par.objName);
        answer = &factory;
        edit(page, "defaultsButton defaultsButton");
        QCOMPARE(child<QLineEdit>(page, "nameEdit")->text(), factory.objName);
        QCOMPARE(asked, 2);
        QCOMPARE(par.objName, QStringLiteral("mine"));
    }

    void address_data()
    {
        // shown: maximum, tool tip, length, unit, end, memory
        const Rows<IoMap, int, QString, QString> row("range", "start", "shown", "edits");
        row("words", {6, 10, 4, 1, 2}, 24, "1000 0~1000 4 Words 31 AI", "inputStart=24");
        row("odd words snap back", {6, 10, 4, 1, 2}, 10, "1000 0~1000 4 Words 17 AI", "inputStart=25");
        row("an odd place may stay", {6, 11, 4, 1, 2}, 11, "1000 0~1000 4 Words 18 AI", "inputStart=13");
        row("more than a start", {6, 9, 200, 1, 2}, 9, "2147483647 0~2147483647 200 Words 152 AI", "inputStart=65538");
        row("bits", {129, 3, 12, 1, 0}, 25, "126 0~126 2 Bytes 26 I", "inputStart=25");
        row("above the highest start", {129, 127, 16, 1, 0}, 127, "127 0~126 2 Bytes 128 I", "");
        row("double words", {132, 0, 2, 1, 4}, 0, "8184 0~8184 2 DWord 7 V", "");
        row("no area", {0, 0, 1, 1, 1}, 0, "0 0~0 1 Bytes 0 ", "");
        row("no channels", {6, 0, 0, 1, 2}, 0, "1024 0~1024 0 Words  AI", "");
    }
    void address()
    {
        QFETCH(IoMap, range);
        QFETCH(QString, edits);
        QFETCH(int, start);
        simulatedhost::setPlcType(owner, 1); // 512 bytes AIEx, 128 bytes IEx, 8192 bytes V
        for (const bool confirmed : {true, false}) {
            SimpleExtendPar par = moduleWith(range);
            SAddrMapWgt page(&par, nullptr, nullptr);
            auto *spinBox = child<QSpinBox>(page, "inputStart");
            QCOMPARE(spinBox->value(), int(range.start));
            QCOMPARE(spinBox->isEnabled(), range.count != 0);
            QCOMPARE(spinBox->accessibleName(), "Input, Start");
            QVERIFY(child<QLineEdit>(page, "inputEnd")->isReadOnly());
            QVERIFY(!child(page, "inputLength")->isEnabled() && !child(page, "inputUnit")->isEnabled());
            edit(page, edits);
            if (confirmed) {
                QTest::keyClicks(spinBox, edits.isEmpty() ? "" : "\r");
                QStringList shown{QString::number(spinBox->maximum()), spinBox->toolTip()};
                shown << child<QSpinBox>(page, "inputLength")->text()
                      << child<QComboBox>(page, "inputUnit")->currentText()
                      << child<QLineEdit>(page, "inputEnd")->text() << child<QLabel>(page, "inputMemory")->text();
                QCOMPARE(spinBox->value(), start);
                QTEST(shown.join(' '), "shown");
            }
            QVERIFY(page.saveData());
            QCOMPARE(int(par.inMap.start), start);
        }
    }

    void saveCalls_data()
    {
        const Rows<QString, int, QString> row("edits", "answer", "done");
        const QString in = "free plc 6 2 8, get plc 6 20 8, ";
        const QString out = "free plc 7 4 4, get plc 7 30 4, ";
        row("nothing moves, the snapshot stays open", "", 1, "2 4");
        row("input only, the snapshot stays open", "inputStart=20", 1, in + "20 4");
        row("output only", "outputStart=30", 1, out + "pop plc, 2 30");
        row("both", "inputStart=20 outputStart=30", 1, in + out + "pop plc, 20 30");
        row("input refused", "inputStart=20 outputStart=30", 6, in + "restore plc, 2 4");
        row("output refused", "outputStart=30", 6, out + "restore plc, 2 4");
    }
    void saveCalls()
    {
        QFETCH(QString, edits);
        QFETCH(int, answer);
        SimpleExtendPar par = moduleWith({6, 2, 4, 1, 2}, {7, 4, 2, 1, 2});
        QWidget parent;
        parent.setWindowTitle("X");
        SAddrMapWgt page(&par, nullptr, &parent);
        edit(page, edits);
        recordingHost().takeResult = answer;
        const bool held = answer == simulatedhost::Held;
        BoxRecorder boxes;
        QCOMPARE(page.saveData(), held);
        const QString starts = QStringLiteral("%1 %2").arg(par.inMap.start).arg(par.outMap.start);
        QCOMPARE(recordingHost().calls.takeFirst(), QString("backup plc"));
        QTEST((recordingHost().takeCalls() << starts).join(", "), "done"); // calls and starts
        QCOMPARE(boxes.told, held ? QStringList() : QStringList{"warning, X: " + getMemoryErrStrByErrCode(answer)});
    }

    void wheelNeedsFocus()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        auto *start = child<QSpinBox>(page, "inputStart");
        for (const bool focused : {false, true}) {
            focused ? start->setFocus() : start->clearFocus();
            const QPoint place = start->rect().center();
            QWheelEvent event(place, start->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(start, &event);
            QCOMPARE(event.isAccepted(), focused);
            QCOMPARE(start->value(), focused ? 11 : 10);
        }
    }
};

QTEST_MAIN(TestFramePages)
#include "tst_framepages.moc"
