// The Address page.
#include "boxrecorder.h"
#include "pagefixture.h"
#include "recordinghost.h"
#include "rows.h"
#include "saddrmapwgt.h"
#include "simpleextendpar.h"
#include "simulatedbase.h"

Q_DECLARE_METATYPE(IoMap)

namespace {

SimpleExtendPar moduleWith(const IoMap &input, const IoMap &output = {})
{
    SimpleExtendPar par;
    par.memoryOwner = "plc";
    par.inMap = input;
    par.outMap = output;
    return par;
}

quint32 plcType = 1;
constexpr quint32 hugeArea = 100'000; ///< controller type whose areas exceed the range of 16-bit starts

} // namespace

// Records the host calls that determine the highest start.
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

class TestAddressPage : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        recordingHost() = RecordingHost();
        plcType = 1;
    }

    void address_data()
    {
        // place: the direction and the host's name of the area; edit: typed into the start
        // shown: tool tip of the start, and its maximum if that is not there; length, unit, end, memory
        const Rows<QString, IoMap, int, QString, QString> row("place", "range", "start", "shown", "edit");
        row("input words", "input AIEx", {6, 10, 4, 1, 2}, 24, "0~1000 4 Words 31 AI", "24");
        row("output words", "output AQEx", {7, 10, 4, 1, 2}, 24, "0~488 4 Words 31 AQ", "24");
        row("an odd start of words is reset", "input AIEx", {6, 10, 4, 1, 2}, 10, "0~1000 4 Words 17 AI", "25");
        row("a stored odd start stays", "input AIEx", {6, 11, 4, 1, 2}, 11, "0~1000 4 Words 18 AI", "13");
        row("a start above 16 bits", "input AIEx", {6, 9, 200, 1, 2}, 9, "0~65535 200 Words 152 AI", "65538");
        row("near the 16-bit limit", "input AIEx", {6, 65000, 200, 1, 2}, 65534, "0~65535 200 Words 65677 AI", "65534");
        row("input bits", "input IEx", {129, 3, 12, 1, 0}, 25, "0~126 2 Bytes 26 I", "25");
        row("output bits", "output QEx", {130, 3, 12, 1, 0}, 25, "0~62 2 Bytes 26 Q", "25");
        row("a stored start above the limit stays", "input IEx", {129, 127, 16, 1, 0}, 127, "0~126 (127) 2 Bytes 128 I",
            "");
        row("a start moves down to the limit", "input IEx", {129, 127, 16, 1, 0}, 126, "0~126 2 Bytes 127 I", "126");
        row("a start above the limit is reset", "input IEx", {129, 140, 16, 1, 0}, 140, "0~126 (140) 2 Bytes 141 I",
            "130");
        row("a large area", "huge V", {132, 0, 1, 1, 1}, 65535, "0~65535 1 Bytes 65535 V", "65535");
        row("input double words", "input V", {132, 0, 2, 1, 4}, 0, "0~8184 2 DWord 7 V", "");
        row("output double words", "output V", {132, 0, 2, 1, 4}, 8, "0~8184 2 DWord 15 V", "8");
        row("a range without an area", "input ", {0, 0, 1, 1, 1}, 0, "0~0 1 Bytes 0 ", "");
        row("an input in an output area", "input ", {7, 0, 1, 1, 1}, 0, "0~0 1 Bytes 0 ", "");
        row("inputs in a digital output area", "input ", {130, 0, 1, 1, 0}, 0, "0~0 1 Bytes 0 ", "");
        row("an output in an input area", "output ", {6, 0, 1, 1, 1}, 0, "0~0 1 Bytes 0 ", "");
        row("outputs in a digital input area", "output ", {129, 0, 1, 1, 0}, 0, "0~0 1 Bytes 0 ", "");
        row("a range without channels", "input AIEx", {6, 0, 0, 1, 2}, 0, u8"0~1024 \u2013 Words  AI", "");
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
                const bool isInToolTip = spinBox->toolTip().endsWith('~' + QString::number(spinBox->maximum()));
                QStringList shown{spinBox->toolTip() + (isInToolTip ? "" : QString(" (%1)").arg(spinBox->maximum()))};
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

    // The key that ends editing accepts the dialog only if the start is allowed.
    void explainsStarts_data()
    {
        // keys: digits, ^ and v for the arrows
        const Rows<IoMap, QString, int, QString> row("range", "keys", "start", "explanation");
        row("a valid start", {6, 10, 4, 1, 2}, "24", 24, "");
        row("an odd start", {6, 10, 4, 1, 2}, "25", 10, "The start must be an even number from 0 to 1000.");
        row("an odd start of double words", {132, 8, 2, 1, 4}, "9", 8,
            "The start must be an even number from 0 to 8184.");
        row("a stored start above the highest stays", {129, 127, 16, 1, 0}, "v^", 127, "");
        row("another one above it", {129, 128, 16, 1, 0}, "v", 128, "The start must be a number from 0 to 126.");
        row("steps from an odd start", {6, 11, 4, 1, 2}, "v", 11, "The start must be an even number from 0 to 1000.");
        row("steps of even words", {6, 10, 4, 1, 2}, "^^v", 12, "");
        row("steps of double words", {132, 8, 2, 1, 4}, "^", 10, "");
        row("steps of bytes", {129, 3, 16, 1, 0}, "^^", 5, "");
    }
    void explainsStarts()
    {
        QFETCH(IoMap, range);
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
            for (const QChar key : fetched<QString>("keys")) {
                const QHash<QChar, Qt::Key> arrows{{'^', Qt::Key_Up}, {'v', Qt::Key_Down}};
                QTest::keyClick(start, arrows.value(key, Qt::Key(key.unicode())));
            }
            QToolTip::hideText();
            QTRY_COMPARE(QToolTip::text(), QString());
            QTest::keyClick(start, endOfEditing);
            QTEST(start->value(), "start");
            QCOMPARE(QToolTip::text(), explanation);
            QCOMPARE(dialog.result() == QDialog::Accepted, explanation.isEmpty());
            if (!explanation.isEmpty()) { // the second key finds an allowed start
                QTest::keyClick(start, endOfEditing);
                QCOMPARE(dialog.result(), int(QDialog::Accepted));
            }
        }
    }

    void saveCalls_data()
    {
        // done: calls, starts and the editor of a refusal
        const Rows<QString, int, QString> row("edits", "answer", "done");
        const QString in = "free plc 6 2 8, get plc 6 20 8, ";
        const QString out = "free plc 7 4 4, get plc 7 30 4, ";
        row("nothing moves, the snapshot stays open", "", 1, "2 4");
        row("input only, the snapshot stays open", "inputStart=20", 1, in + "20 4");
        row("output only", "outputStart=30", 1, out + "pop plc, 2 30");
        row("both", "inputStart=20 outputStart=30", 1, in + out + "pop plc, 20 30");
        row("input refused", "inputStart=20 outputStart=30", 6, in + "restore plc, 2 4, inputStart");
        row("output refused", "outputStart=30", 6, out + "restore plc, 2 4, outputStart");
    }
    void saveCalls()
    {
        QFETCH(int, answer);
        SimpleExtendPar par = moduleWith({6, 2, 4, 1, 2}, {7, 4, 2, 1, 2});
        QWidget parent;
        parent.setWindowTitle("X");
        SAddrMapWgt page(&par, nullptr, &parent);
        edit(page, fetched<QString>("edits"));
        recordingHost().calls.clear();
        recordingHost().takeResult = answer;
        const bool held = answer == simulatedhost::Held;
        BoxRecorder boxes;
        QStringList refused;
        connect(&page, &ParamPage::signal_refused, this, [&](QWidget *editor) { refused << editor->objectName(); });
        QCOMPARE(page.saveData(), held);
        const QString starts = QStringLiteral("%1 %2").arg(par.inMap.start).arg(par.outMap.start);
        QCOMPARE(recordingHost().calls.takeFirst(), QString("backup plc"));
        QTEST((recordingHost().takeCalls() << starts << refused).join(", "), "done");
        QCOMPARE(boxes.texts, held ? QStringList() : QStringList{"warning, X: " + getMemoryErrStrByErrCode(answer)});
    }

    // Steps before Cancel: "ok 20 30" moves to these starts, the host refuses "refused 20 30" and changes the record by
    // "host 60 70".
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
        row("OK moved both, the host, OK again", "ok 20 30, host 60 70, ok 40 50", "60 70");
        row("OK moved both twice", "ok 20 30, ok 40 50", "2 4");
        row("the latest open snapshot", "ok 20 4, ok 40 4", "20 4");
        row("a closed snapshot after an open one", "ok 20 4, ok 40 30", "2 4");
        row("a refused OK after an open snapshot", "ok 20 4, refused 40 30", "2 4");
    }
    void discards()
    {
        SimpleExtendPar par = moduleWith({6, 2, 4, 1, 2}, {7, 4, 2, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        BoxRecorder boxes;
        for (const QString &step : fetched<QString>("steps").split(", ", Qt::SkipEmptyParts)) {
            const QStringList words = step.split(' ');
            if (words[0] == "host") {
                par.inMap.start = quint16(words[1].toInt());
                par.outMap.start = quint16(words[2].toInt());
                continue;
            }
            const bool isTaken = words[0] == "ok";
            edit(page, QString("inputStart=%1 outputStart=%2").arg(words[1], words[2]));
            recordingHost().takeResult = isTaken ? simulatedhost::Held : 6;
            QCOMPARE(page.saveData(), isTaken);
        }
        page.discard();
        QTEST(QStringLiteral("%1 %2").arg(par.inMap.start).arg(par.outMap.start), "starts");
    }

    void rollBackEndsTheSnapshotsOfThePage()
    {
        SimpleExtendPar par = moduleWith({6, 2, 4, 1, 2}, {7, 4, 2, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        edit(page, "inputStart=20");
        QVERIFY(page.saveData());
        recordingHost().calls.clear();
        page.rollBack();
        QCOMPARE(recordingHost().takeCalls(), QStringList("restore plc")); // not also the one of config()
        QCOMPARE(int(par.inMap.start), 2);
    }

    void isHeard()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2}, {7, 4, 2, 1, 2});
        const SAddrMapWgt page(&par, nullptr, nullptr);
        QStringList heard;
        for (const char *editor :
             {"inputStart", "inputEnd", "inputLength", "inputUnit", "inputMemory", "outputStart", "outputMemory"}) {
            const auto [name, description] = heardOf(child(page, editor));
            heard += name + ": " + description;
        }
        QCOMPARE(heard, QStringList({"Input, Start: Input, Start, 0~1000", "Input, End: Input, End",
                                     "Input, Length: Input, Length", "Words: Input, Unit", "AI: Input, Memory",
                                     "Output, Start: Output, Start, 0~500", "AQ: Output, Memory"}));
    }

    void unitsAreWordsBytesAndDoubleWords()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2});
        const SAddrMapWgt page(&par, nullptr, nullptr);
        const auto *units = child<QComboBox>(page, "inputUnit");
        QStringList choices;
        for (int i = 0; i < units->count(); ++i) {
            choices << units->itemData(i).toString() + '=' + units->itemText(i);
        }
        QCOMPARE(choices.join('|'), QString("2=Words|1=Bytes|4=DWord"));
    }

    void wheelNeedsFocus()
    {
        SimpleExtendPar par = moduleWith({6, 10, 4, 1, 2});
        SAddrMapWgt page(&par, nullptr, nullptr);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        auto *start = child<QSpinBox>(page, "inputStart");
        for (const bool focused : {false, true}) {
            (focused ? static_cast<QWidget *>(start) : &page)->setFocus();
            QCOMPARE(turnWheel(start), focused);
            QCOMPARE(start->value(), focused ? 12 : 10);
        }
    }
};

QTEST_MAIN(TestAddressPage)
#include "tst_addresspage.moc"
