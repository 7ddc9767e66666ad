// The pages of every module: name and comment, addresses.
#include "boxrecorder.h"
#include "recordinghost.h"
#include "saddrmapwgt.h"
#include "sgeneralwgt.h"
#include "simpleextendpar.h"
#include "simulatedbase.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTextCodec>
#include <QTextEdit>
#include <QtTest>

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

    void commentLimit_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("cursorAfter");
        const QString full = letters(250);
        QTest::newRow("too much into an empty comment") << QString() << 0 << letters(300) << full << 250;
        QTest::newRow("into the middle of a full comment") << full << 100 << "b" << full << 100;
        QTest::newRow("before a full comment") << full << 0 << "bcd" << full << 0;
        QTest::newRow("up to the limit in bytes") << letters(248) << 248 << "é" << letters(248) + "é" << 249;
        QTest::newRow("beyond the limit in bytes") << letters(249) << 249 << "é" << letters(249) << 249;
        QTest::newRow("no half of a pair stays") << letters(247) << 247 << smiley << letters(247) << 247;
        QTest::newRow("a book") << "end" << 0 << letters(3'000'000) << letters(247) + "end" << 247;
    }
    void commentLimit()
    {
        QFETCH(QString, before);
        QFETCH(int, cursor);
        QFETCH(QString, pasted);
        SimpleExtendPar par;
        par.comment = before;
        SGeneralWgt page(&par, nullptr, nullptr);
        auto *edit = page.findChild<QTextEdit *>("commentEdit");
        QTextCursor place = edit->textCursor();
        place.setPosition(cursor);
        edit->setTextCursor(place);
        QGuiApplication::clipboard()->setText(pasted);
        edit->paste();
        QTEST(edit->toPlainText(), "after");
        QTEST(edit->textCursor().position(), "cursorAfter");
    }

    void generalSave_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QString>("savedComment");
        QTest::newRow("line ends stay") << "Module"
                                        << "one\r\ntwo"
                                        << "one\r\ntwo";
        QTest::newRow("a longer name stays") << letters(30) << ""
                                             << "";
        QTest::newRow("a longer comment is cut at its end") << "" << letters(260) + "b" << letters(250);
        QTest::newRow("a pair at the cut goes") << "" << letters(248) + smiley << letters(248);
    }
    void generalSave()
    {
        QFETCH(QString, name);
        QFETCH(QString, comment);
        SimpleExtendPar par;
        par.objName = name;
        par.comment = comment;
        SGeneralWgt page(&par, nullptr, nullptr);
        QVERIFY(page.saveData());
        QCOMPARE(par.objName, name);
        QTEST(par.comment, "savedComment");

        page.findChild<QLineEdit *>("nameEdit")->setText(letters(23) + smiley);
        page.findChild<QTextEdit *>("commentEdit")->setPlainText("new");
        QVERIFY(page.saveData());
        QCOMPARE(par.objName + par.comment, letters(23) + "new");
    }

    void defaultsAreAskedForOnce()
    {
        SimpleExtendPar par;
        SimpleExtendPar factory;
        par.objName = "mine";
        factory.objName = "factory";
        SGeneralWgt page(&par, nullptr, nullptr);
        auto *name = page.findChild<QLineEdit *>("nameEdit");
        SimpleExtendPar *answer = nullptr;
        int asked = 0;
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_btnDefault_clicked")); // nobody listens
        connect(&page, &SGeneralWgt::signal_requestDefaultPar, this, [&] {
            ++asked;
            return answer;
        });
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_btnDefault_clicked")); // nothing to be had
        QCOMPARE(name->text(), par.objName);
        answer = &factory;
        page.findChild<QPushButton *>("defaultsButton")->click();
        page.findChild<QPushButton *>("defaultsButton")->click();
        QCOMPARE(name->text(), factory.objName);
        QCOMPARE(asked, 2);
        QCOMPARE(par.objName, QStringLiteral("mine"));
    }

    void addressShown_data()
    {
        QTest::addColumn<IoMap>("range");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<QString>("shown"); // tool tip, length, unit, end, memory
        const auto row = [](const char *name, const IoMap &range, int maximum, const char *shown) {
            QTest::newRow(name) << range << maximum << shown;
        };
        row("words", {6, 10, 4, 1, 2}, 1000, "0~1000 4 Words 17 AI");
        row("bits", {129, 3, 12, 1, 0}, 126, "0~126 2 Bytes 4 I");
        row("double words", {132, 0, 2, 1, 4}, 8184, "0~8184 2 DWord 7 V");
        row("above the highest start", {129, 127, 16, 1, 0}, 127, "0~126 2 Bytes 128 I");
        row("a wrapped highest start", {6, 0, 200, 1, 2}, 2147483647, "0~2147483647 200 Words 143 AI");
        row("no area", {0, 0, 1, 1, 1}, 0, "0~0 1 Bytes 0 ");
        row("no channels", {6, 0, 0, 1, 2}, 1024, "0~1024 0 Words  AI");
    }
    void addressShown()
    {
        QFETCH(IoMap, range);
        simulatedhost::setPlcType(owner, 1); // 512 bytes AIEx, 128 bytes IEx, 8192 bytes V
        SimpleExtendPar par = moduleWith(range);
        SAddrMapWgt page(&par, nullptr, nullptr);
        const auto *start = page.findChild<QSpinBox *>("inputStart");
        QCOMPARE(start->value(), int(range.start));
        QTEST(start->maximum(), "maximum");
        const QStringList shown{start->toolTip(), page.findChild<QSpinBox *>("inputLength")->text(),
                                page.findChild<QComboBox *>("inputUnit")->currentText(),
                                page.findChild<QLineEdit *>("inputEnd")->text(),
                                page.findChild<QLabel *>("inputMemory")->text()};
        QTEST(shown.join(' '), "shown");
        QCOMPARE(start->isEnabled(), range.count != 0);
        QVERIFY(page.saveData());
        QCOMPARE(par.inMap.start, range.start);
    }

    void typedStart_data()
    {
        QTest::addColumn<IoMap>("range");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("start");
        QTest::newRow("even") << IoMap{6, 10, 4, 1, 2} << "24" << 24;
        QTest::newRow("odd words snap back") << IoMap{6, 10, 4, 1, 2} << "25" << 10;
        QTest::newRow("an odd place may stay") << IoMap{6, 11, 4, 1, 2} << "13" << 11;
        QTest::newRow("odd bytes") << IoMap{129, 10, 8, 1, 0} << "25" << 25;
        QTest::newRow("more than a start can hold") << IoMap{6, 10, 255, 1, 2} << "65538" << 10;
    }
    void typedStart()
    {
        QFETCH(IoMap, range);
        QFETCH(QString, typed);
        QFETCH(int, start);
        simulatedhost::setPlcType(owner, 1);
        for (const bool confirmed : {true, false}) {
            SimpleExtendPar par = moduleWith(range);
            SAddrMapWgt page(&par, nullptr, nullptr);
            auto *spinBox = page.findChild<QSpinBox *>("inputStart");
            spinBox->selectAll();
            QTest::keyClicks(spinBox, typed);
            if (confirmed) {
                QTest::keyClick(spinBox, Qt::Key_Enter);
                QCOMPARE(spinBox->value(), start);
                QCOMPARE(page.findChild<QLineEdit *>("inputEnd")->text().toInt() - start,
                         (range.unit == 0 ? range.count / 8 : quint8(range.count * range.unit)) - 1);
            }
            QVERIFY(page.saveData());
            QCOMPARE(int(par.inMap.start), start);
        }
    }

    void saveCalls_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("output");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QStringList>("calls");
        const QStringList in{"free plc 6 0 8", "get plc 6 20 8"};
        const QStringList out{"free plc 7 0 4", "get plc 7 30 4"};
        const QStringList open{"backup plc"};
        QTest::newRow("nothing moves, the snapshot stays open") << 0 << 0 << 1 << open;
        QTest::newRow("input only, the snapshot stays open") << 20 << 0 << 1 << open + in;
        QTest::newRow("output only") << 0 << 30 << 1 << open + out + QStringList{"pop plc"};
        QTest::newRow("both") << 20 << 30 << 1 << open + in + out + QStringList{"pop plc"};
        QTest::newRow("input refused") << 20 << 30 << 6 << open + in + QStringList{"restore plc"};
        QTest::newRow("output refused") << 0 << 30 << 6 << open + out + QStringList{"restore plc"};
    }
    void saveCalls()
    {
        QFETCH(int, input);
        QFETCH(int, output);
        QFETCH(int, answer);
        SimpleExtendPar par = moduleWith({6, 0, 4, 1, 2}, {7, 0, 2, 1, 2});
        QWidget parent;
        parent.setWindowTitle("Properties");
        SAddrMapWgt page(&par, nullptr, &parent);
        page.findChild<QSpinBox *>("inputStart")->setValue(input);
        page.findChild<QSpinBox *>("outputStart")->setValue(output);
        recordingHost().takeResult = answer;
        const bool held = answer == simulatedhost::Held;
        BoxRecorder boxes;
        QCOMPARE(page.saveData(), held);
        QTEST(recordingHost().takeCalls(), "calls");
        QCOMPARE(boxes.texts, held ? QStringList() : QStringList{getMemoryErrStrByErrCode(answer)});
        QCOMPARE(boxes.titles, held ? QStringList() : QStringList{"Properties"});
        QCOMPARE(int(par.inMap.start), held ? input : 0);
        QCOMPARE(int(par.outMap.start), held ? output : 0);
    }

    void wheelNeedsFocus()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        auto *start = page.findChild<QSpinBox *>("inputStart");
        const auto turnWheel = [start] {
            const QPoint place = start->rect().center();
            QWheelEvent event(place, start->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(start, &event);
            return event.isAccepted();
        };
        start->clearFocus();
        QVERIFY(!turnWheel());
        QCOMPARE(start->value(), 10);
        start->setFocus();
        QVERIFY(turnWheel());
        QCOMPARE(start->value(), 11);
    }
};

QTEST_MAIN(TestFramePages)
#include "tst_framepages.moc"
