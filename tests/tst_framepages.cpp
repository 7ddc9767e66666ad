// The pages of every module: name and comment, addresses.
#include "boxrecorder.h"
#include "pagefixture.h"
#include "recordinghost.h"
#include "rows.h"
#include "saddrmapwgt.h"
#include "sgeneralwgt.h"
#include "simpleextendpar.h"
#include "simulatedbase.h"

#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolTip>

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

quint32 plcType = 1;
constexpr quint32 hugeArea = 100'000; ///< controller type with more bytes than 16-bit starts reach

} // namespace

// The host's answers for the highest start, recorded.
PlcTypeVersion getPrjPlcTypeVersion(const QString &plcOwner)
{
    recordingHost().calls << QStringLiteral("plc ") + plcOwner;
    return {plcType, 2};
}

quint32 getPlcAddrRange(quint32 type, quint32 version, const QString &name)
{
    recordingHost().calls << QStringLiteral("range %1 %2 %3").arg(type).arg(version).arg(name);
    const QHash<QString, quint32> sizes{{"AIEx", 512}, {"AQEx", 256}, {"IEx", 128}, {"QEx", 64}, {"V", 8192}};
    return type == hugeArea ? hugeArea : sizes.value(name);
}

class TestFramePages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }
    void cleanup()
    {
        recordingHost() = RecordingHost();
        plcType = 1;
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
        page.show();
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

    void edits_data()
    {
        // The bar is the cursor. Steps: +text is typed, one event per UTF-16 unit, *text in one event; =text is pasted,
        // !text replaces all, < undoes, > redoes.
        const Rows<QString, QString, QStringList, QString> row("editor", "before", "steps", "after");
        for (const QString editor : {"nameEdit", "commentEdit"}) {
            const auto add = [&](const char *name, const QString &before, const QStringList &steps,
                                 const QString &after) {
                row(editor.toLatin1() + ", " + name, editor, before, steps, after);
            };
            const QString full = letters(editor == "nameEdit" ? 24 : 250);
            const QString fullBut1 = full.mid(1);
            const QString fullBut2 = full.mid(2);
            add("a pair in two events", "abcde|fgh", {"+" + smiley}, "abcde" + smiley + "|fgh");
            add("a pair in one event", "abcde|fgh", {"*" + smiley}, "abcde" + smiley + "|fgh");
            add("halves pasted", "ab|cd", {"=" + smiley.right(1) + "x" + smiley.left(1) + "y"}, "abxy|cd");
            add("a pair that does not fit", fullBut1 + '|', {"=" + smiley}, fullBut1 + '|');
            add("undone", fullBut1 + '|', {"=x" + smiley, "<"}, fullBut1 + '|');
            add("a longer text undone", "ab|cd", {"=" + full + smiley, "<"}, "ab|cd");
            add("undone twice", fullBut2 + '|', {"=x", "=" + smiley, "<", "<", "<"}, fullBut2 + '|');
            add("undone and redone", "ab|" + fullBut2.mid(2), {"=x", "<", ">"}, "abx|" + fullBut2.mid(2));
            add("untouched after undo", full.mid(4) + "é|", {"=xyz", "<"}, full.mid(4) + "é|");
        }
        row("a half alone", "nameEdit", "abcde|fgh", {"+" + smiley.left(1), "+x"}, "abcdex|fgh");
        row("a full comment", "commentEdit", letters(100) + '|' + letters(150), {"=xy", "<"},
            letters(100) + '|' + letters(150));
        row("a name of the length that is shown", "nameEdit", '|' + letters(30), {"!" + letters(24)},
            letters(24) + '|');
        row("a comment with other line ends", "commentEdit", "|a\r\nb", {"!a\nb"}, "a\nb|");
    }
    void edits()
    {
        QFETCH(QString, editor);
        QFETCH(QString, before);
        QFETCH(QStringList, steps);
        SimpleExtendPar par;
        QString &stored = editor == "nameEdit" ? par.objName : par.comment;
        stored = QString(before).remove('|');
        SGeneralWgt page(&par, nullptr, nullptr);
        page.show();
        auto *field = child(page, editor);
        auto *name = qobject_cast<QLineEdit *>(field);
        auto *comment = qobject_cast<QTextEdit *>(field);
        QTest::keyClick(field, Qt::Key_Home);
        for (int i = 0; i < before.indexOf('|'); ++i) {
            QTest::keyClick(field, Qt::Key_Right);
        }
        const auto commit = [field](const QString &text) {
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(field, &event);
        };
        for (const QString &step : steps) {
            const QString text = step.mid(1);
            if (step[0] == '!') {
                QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
            }
            if (step[0] == '+') {
                for (const QChar half : text) {
                    commit(half);
                }
            } else if (step[0] == '*') {
                commit(text);
            } else if (step[0] == '=' || step[0] == '!') {
                QGuiApplication::clipboard()->setText(text);
                QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
            } else {
                QTest::keyClick(field, Qt::Key_Z,
                                step == "<" ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
            }
        }
        QVERIFY(page.saveData());
        const int place = name != nullptr ? name->cursorPosition() : comment->textCursor().position();
        QTEST(QString(stored).insert(place, '|'), "after");
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
        // place: the direction and the host's name of its area
        // shown: maximum, tool tip, length, unit, end, memory
        const Rows<QString, IoMap, int, QString, QString> row("place", "range", "start", "shown", "edit");
        row("words", "input AIEx", {6, 10, 4, 1, 2}, 24, "1000 0~1000 4 Words 31 AI", "24");
        row("output words", "output AQEx", {7, 10, 4, 1, 2}, 24, "488 0~488 4 Words 31 AQ", "24");
        row("odd words snap back", "input AIEx", {6, 10, 4, 1, 2}, 10, "1000 0~1000 4 Words 17 AI", "25");
        row("an odd place may stay", "input AIEx", {6, 11, 4, 1, 2}, 11, "1000 0~1000 4 Words 18 AI", "13");
        row("more than a start", "input AIEx", {6, 9, 200, 1, 2}, 9, "65535 0~65535 200 Words 152 AI", "65538");
        row("more than a start, next to the limit", "input AIEx", {6, 65000, 200, 1, 2}, 65534,
            "65535 0~65535 200 Words 65677 AI", "65534");
        row("bits", "input IEx", {129, 3, 12, 1, 0}, 25, "126 0~126 2 Bytes 26 I", "25");
        row("output bits", "output QEx", {130, 3, 12, 1, 0}, 25, "62 0~62 2 Bytes 26 Q", "25");
        row("above the highest start", "input IEx", {129, 127, 16, 1, 0}, 127, "127 0~126 2 Bytes 128 I", "");
        row("down from above the highest start", "input IEx", {129, 127, 16, 1, 0}, 126, "126 0~126 2 Bytes 127 I",
            "126");
        row("from one such start to another", "input IEx", {129, 140, 16, 1, 0}, 140, "140 0~126 2 Bytes 141 I", "130");
        row("the highest start of a large area", "huge V", {132, 0, 1, 1, 1}, 65535, "65535 0~65535 1 Bytes 65535 V",
            "65535");
        row("double words", "input V", {132, 0, 2, 1, 4}, 0, "8184 0~8184 2 DWord 7 V", "");
        row("output double words", "output V", {132, 0, 2, 1, 4}, 8, "8184 0~8184 2 DWord 15 V", "8");
        row("no area", "input ", {0, 0, 1, 1, 1}, 0, "0 0~0 1 Bytes 0 ", "");
        row("an input in an output area", "input ", {7, 0, 1, 1, 1}, 0, "0 0~0 1 Bytes 0 ", "");
        row("inputs in a digital output area", "input ", {130, 0, 1, 1, 0}, 0, "0 0~0 1 Bytes 0 ", "");
        row("an output in an input area", "output ", {6, 0, 1, 1, 1}, 0, "0 0~0 1 Bytes 0 ", "");
        row("outputs in a digital input area", "output ", {129, 0, 1, 1, 0}, 0, "0 0~0 1 Bytes 0 ", "");
        row("no channels", "input AIEx", {6, 0, 0, 1, 2}, 0, "1024 0~1024 0 Words  AI", "");
    }
    void address()
    {
        QFETCH(QString, place);
        QFETCH(IoMap, range);
        QFETCH(QString, edit);
        QFETCH(int, start);
        plcType = place.startsWith("huge") ? hugeArea : plcType;
        const QString stem = place.startsWith("output") ? "output" : "input";
        const QString name = place.section(' ', 1);
        const bool isInput = stem == "input";
        for (const bool confirmed : {true, false}) {
            SimpleExtendPar par = isInput ? moduleWith(range) : moduleWith({}, range);
            recordingHost().calls.clear();
            SAddrMapWgt page(&par, nullptr, nullptr);
            const QStringList queries{"plc plc", QString("range %1 2 %2").arg(plcType).arg(name)};
            QCOMPARE(recordingHost().takeCalls(), name.isEmpty() ? QStringList() : queries);
            auto *spinBox = child<QSpinBox>(page, stem + "Start");
            QCOMPARE(spinBox->value(), int(range.start));
            QCOMPARE(spinBox->isEnabled(), range.count != 0);
            QCOMPARE(spinBox->accessibleName(), isInput ? "Input, Start" : "Output, Start");
            QVERIFY(child<QLineEdit>(page, stem + "End")->isReadOnly());
            QVERIFY(!child(page, stem + "Length")->isEnabled() && !child(page, stem + "Unit")->isEnabled());
            ::edit(page, edit.isEmpty() ? QString() : stem + "Start=" + edit);
            if (confirmed) {
                QTest::keyClicks(spinBox, edit.isEmpty() ? "" : "\r");
                QStringList shown{QString::number(spinBox->maximum()), spinBox->toolTip()};
                shown << child<QSpinBox>(page, stem + "Length")->text()
                      << child<QComboBox>(page, stem + "Unit")->currentText()
                      << child<QLineEdit>(page, stem + "End")->text() << child<QLabel>(page, stem + "Memory")->text();
                QCOMPARE(spinBox->value(), start);
                QTEST(shown.join(' '), "shown");
            }
            QVERIFY(page.saveData());
            QCOMPARE(int(isInput ? par.inMap.start : par.outMap.start), start);
        }
    }

    // Only a start that may stay lets the key that ends editing accept the dialog.
    void explainsStarts_data()
    {
        // keys: digits, ^ and v for the arrows
        const Rows<IoMap, QString, int, QString> row("range", "keys", "start", "explanation");
        row("a valid start", {6, 10, 4, 1, 2}, "24", 24, "");
        row("an odd start", {6, 10, 4, 1, 2}, "25", 10, "The start must be an even number from 0 to 1000.");
        row("an odd start of double words", {132, 8, 2, 1, 4}, "9", 8,
            "The start must be an even number from 0 to 8184.");
        row("above the highest start", {129, 127, 16, 1, 0}, "v^", 127, "");
        row("another one above it", {129, 128, 16, 1, 0}, "v", 128, "The start must be a number from 0 to 126.");
        row("steps from an odd start", {6, 11, 4, 1, 2}, "v", 11, "The start must be an even number from 0 to 1000.");
        row("steps of even words", {6, 10, 4, 1, 2}, "^^v", 12, "");
        row("steps of double words", {132, 8, 2, 1, 4}, "^", 10, "");
        row("steps of bytes", {129, 3, 16, 1, 0}, "^^", 5, "");
    }
    void explainsStarts()
    {
        QFETCH(IoMap, range);
        QFETCH(QString, keys);
        QFETCH(QString, explanation);
        for (const Qt::Key endOfEditing : {Qt::Key_Return, Qt::Key_Enter}) {
            SimpleExtendPar par = moduleWith(range);
            QDialog dialog;
            SAddrMapWgt page(&par, nullptr, &dialog);
            QPushButton ok(&dialog);
            ok.setDefault(true);
            connect(&ok, &QPushButton::clicked, &dialog, &QDialog::accept);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            auto *start = child<QSpinBox>(page, "inputStart");
            start->setFocus();
            start->selectAll();
            for (const QChar key : keys) {
                key.isDigit() ? QTest::keyClick(start, key.toLatin1())
                : key == '^'  ? QTest::keyClick(start, Qt::Key_Up)
                              : QTest::keyClick(start, Qt::Key_Down);
            }
            QToolTip::hideText();
            QTRY_COMPARE(QToolTip::text(), QString());
            QTest::keyClick(start, endOfEditing);
            QTEST(start->value(), "start");
            QCOMPARE(QToolTip::text(), explanation);
            QCOMPARE(dialog.result() == QDialog::Accepted, explanation.isEmpty());
            if (!explanation.isEmpty()) { // which is over now
                QTest::keyClick(start, endOfEditing);
                QCOMPARE(dialog.result(), int(QDialog::Accepted));
            }
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
        recordingHost().calls.clear();
        recordingHost().takeResult = answer;
        const bool held = answer == simulatedhost::Held;
        BoxRecorder boxes;
        QCOMPARE(page.saveData(), held);
        const QString starts = QStringLiteral("%1 %2").arg(par.inMap.start).arg(par.outMap.start);
        QCOMPARE(recordingHost().calls.takeFirst(), QString("backup plc"));
        QTEST((recordingHost().takeCalls() << starts).join(", "), "done"); // calls and starts
        QCOMPARE(boxes.told, held ? QStringList() : QStringList{"warning, X: " + getMemoryErrStrByErrCode(answer)});
    }

    // Steps before Cancel: "ok 20 30" moves to these starts, "refused 20 30" is refused by the host,
    // "host 60 70" is a change of the record by the host.
    void discards_data()
    {
        const Rows<QString, QString> row("steps", "starts");
        row("nothing was done", "", "2 4");
        row("the host moved both", "host 60 70", "60 70");
        row("the host moved both, OK stored nothing", "host 60 70, refused 20 30", "60 70");
        row("OK moved the input", "ok 20 4", "2 4");
        row("OK moved the input, the host the output", "ok 20 4, host 20 70", "2 70");
        row("OK moved the output, the host the input", "ok 2 30, host 60 30", "60 4");
        row("OK moved both, then the host", "ok 20 30, host 60 70", "60 70");
        row("OK moved both twice", "ok 20 30, ok 40 50", "2 4");
        row("the latest open snapshot", "ok 20 4, ok 40 4", "20 4");
        row("a closed snapshot after an open one", "ok 20 4, ok 40 30", "2 4");
        row("a refused OK after an open snapshot", "ok 20 4, refused 40 30", "2 4");
    }
    void discards()
    {
        QFETCH(QString, steps);
        SimpleExtendPar par = moduleWith({6, 2, 4, 1, 2}, {7, 4, 2, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        BoxRecorder boxes;
        for (const QString &step : steps.split(", ", Qt::SkipEmptyParts)) {
            const QStringList words = step.split(' ');
            if (words[0] == "host") {
                par.inMap.start = quint16(words[1].toInt());
                par.outMap.start = quint16(words[2].toInt());
                continue;
            }
            const bool isTaken = words[0] == "ok";
            child<QSpinBox>(page, "inputStart")->setValue(words[1].toInt());
            child<QSpinBox>(page, "outputStart")->setValue(words[2].toInt());
            recordingHost().takeResult = isTaken ? simulatedhost::Held : 6;
            QCOMPARE(page.saveData(), isTaken);
        }
        page.discard();
        QTEST(QStringLiteral("%1 %2").arg(par.inMap.start).arg(par.outMap.start), "starts");
    }

    void isHeard()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2}, {7, 4, 2, 1, 2});
        const SAddrMapWgt address(&par, nullptr, nullptr);
        const SGeneralWgt general(&par, nullptr, nullptr);
        const auto heard = [](const QWidget &page, const char *editor) -> QString {
            QAccessibleInterface *const read = QAccessible::queryAccessibleInterface(child(page, editor));
            return read->text(QAccessible::Name) + '|' + read->text(QAccessible::Description);
        };
        QCOMPARE(heard(address, "inputStart"), "Input, Start|Input, Start, 0~1000");
        QCOMPARE(heard(address, "inputEnd"), "Input, End|Input, End");
        QCOMPARE(heard(address, "inputLength"), "Input, Length|Input, Length");
        QCOMPARE(heard(address, "inputUnit"), "Words|Input, Unit");
        QCOMPARE(heard(address, "inputMemory"), "AI|Input, Memory");
        QCOMPARE(heard(address, "outputStart"), "Output, Start|Output, Start, 0~500");
        QCOMPARE(heard(address, "outputMemory"), "AQ|Output, Memory");
        QCOMPARE(heard(general, "nameEdit"), "Name|");
        QCOMPARE(heard(general, "commentEdit"), "Comment|");
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
            QCOMPARE(start->value(), focused ? 12 : 10);
        }
    }
};

QTEST_MAIN(TestFramePages)
#include "tst_framepages.moc"
