// The General page: name and comment.
#include "pagefixture.h"
#include "rows.h"
#include "sgeneralwgt.h"
#include "simpleextendpar.h"

namespace {

const QString smiley = QStringLiteral("\U0001F600"); // a surrogate pair, four bytes

QString letters(int count)
{
    return QStringLiteral("a").repeated(count);
}

} // namespace

class TestGeneralPage : public QObject {
    Q_OBJECT

private slots:
    void replacesBothTexts()
    {
        SimpleExtendPar par;
        par.objName = letters(30); // longer than the maximum length of the editor
        SGeneralWgt page(&par, nullptr, nullptr);
        child<QTextEdit>(page, "commentEdit")->setPlainText("new");
        QTest::keyClick(child(page, "commentEdit"), Qt::Key_Tab); // goes to the next field
        QVERIFY(page.saveData());
        QCOMPARE(par.objName + par.comment, letters(30) + "new");
        // One unpaired surrogate, and one pair split by the maximum length.
        child<QLineEdit>(page, "nameEdit")->setText(smiley + QChar(0xD83D) + letters(20) + smiley);
        QVERIFY(page.saveData());
        QCOMPARE(par.objName + par.comment, smiley + letters(20) + "new");
    }

    void edits_data()
    {
        // The bar is the cursor. Steps: "+text" is typed with one event per UTF-16 unit, "*text" with one event;
        // "=text" is pasted; "!text" replaces all; "<" is undo, ">" is redo.
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
            add("unpaired surrogates pasted", "ab|cd", {"=" + smiley.right(1) + "x" + smiley.left(1) + "y"}, "abxy|cd");
            add("a pair that does not fit pasted", fullBut1 + '|', {"=" + smiley}, fullBut1 + '|');
            add("a truncated paste undone", fullBut1 + '|', {"=x" + smiley, "<"}, fullBut1 + '|');
            add("a longer text undone", "ab|cd", {"=" + full + smiley, "<"}, "ab|cd");
            add("undone twice", fullBut2 + '|', {"=x", "=" + smiley, "<", "<", "<"}, fullBut2 + '|');
            add("undone and redone", "ab|" + fullBut2.mid(2), {"=x", "<", ">"}, "abx|" + fullBut2.mid(2));
            add("unedited after undo", full.mid(4) + "é|", {"=xyz", "<"}, full.mid(4) + "é|");
        }
        row("an unpaired surrogate", "nameEdit", "abcde|fgh", {"+" + smiley.left(1), "+x"}, "abcdex|fgh");
        const auto comment = [&row](const char *name, const QString &before, const QStringList &steps,
                                    const QString &after) { row(name, "commentEdit", before, steps, after); };
        const QString inside = letters(100) + '|' + letters(150);
        comment("a paste into a full comment undone", inside, {"=xy", "<"}, inside);
        comment("too much into an empty comment", "|", {"=" + letters(300)}, letters(250) + '|');
        comment("into the middle of a full comment", inside, {"=b"}, inside);
        comment("typed into the middle of a full comment", inside, {"*b"}, inside);
        comment("before a full comment", '|' + letters(250), {"=bcd"}, '|' + letters(250));
        comment("a comment up to the limit in bytes", letters(248) + '|', {"=é"}, letters(248) + "é|");
        comment("a comment above the limit in bytes", letters(249) + '|', {"=é"}, letters(249) + '|');
        comment("a surrogate pair is not split", letters(247) + '|', {"=" + smiley}, letters(247) + '|');
        comment("a very long text", "|end", {"=" + letters(3'000'000)}, letters(247) + "|end");
        comment("unedited line ends stay", "|one\r\ntwo", {}, "|one\r\ntwo");
        comment("no-break spaces become shorter", '|' + QString(200, QChar::Nbsp), {}, '|' + QString(200, ' '));
        comment("no-break spaces pasted", "|", {"=" + QString(200, QChar::Nbsp)}, QString(200, ' ') + '|');
        comment("line separators pasted", "|", {"=" + QString(200, QChar::LineSeparator)}, QString(200, '\n') + '|');
        comment("a longer comment is truncated", '|' + letters(260) + "b", {}, '|' + letters(250));
        comment("a pair at the limit is removed", '|' + letters(248) + smiley, {}, '|' + letters(248));
        row("a name replaced by a text of the shown length", "nameEdit", '|' + letters(30), {"!" + letters(24)},
            letters(24) + '|');
        row("a comment with other line ends replaced", "commentEdit", "|a\r\nb", {"!a\nb"}, "a\nb|");
    }
    void edits()
    {
        QFETCH(QString, editor);
        QFETCH(QString, before);
        SimpleExtendPar par;
        QString &stored = editor == "nameEdit" ? par.objName : par.comment;
        stored = QString(before).remove('|');
        SGeneralWgt page(&par, nullptr, nullptr);
        page.show();
        auto *field = child(page, editor);
        QTest::keyClick(field, Qt::Key_Home);
        for (int i = 0; i < before.indexOf('|'); ++i) {
            QTest::keyClick(field, Qt::Key_Right);
        }
        const auto commit = [field](const QString &text) {
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(field, &event);
        };
        for (const QString &step : fetched<QStringList>("steps")) {
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
        const auto *comment = qobject_cast<QTextEdit *>(field);
        const int place = comment != nullptr ? comment->textCursor().position()
                                             : field->inputMethodQuery(Qt::ImCursorPosition).toInt();
        QTEST(QString(stored).insert(place, '|'), "after");
    }

    void defaultRecordIsRequestedUntilThereIsOne()
    {
        SimpleExtendPar par;
        SimpleExtendPar factory;
        par.objName = "mine";
        factory.objName = letters(30);
        SGeneralWgt page(&par, nullptr, nullptr);
        SimpleExtendPar *answer = nullptr;
        int requests = 0;
        edit(page, "defaultsButton"); // no receiver is connected
        connect(&page, &SGeneralWgt::signal_requestDefaultPar, this, [&] {
            ++requests;
            return answer;
        });
        QVERIFY(QMetaObject::invokeMethod(&page, "slot_btnDefault_clicked")); // the receiver returns null
        QCOMPARE(child<QLineEdit>(page, "nameEdit")->text(), par.objName);
        answer = &factory;
        edit(page, "defaultsButton defaultsButton");
        QCOMPARE(requests, 2);
        QCOMPARE(par.objName, QStringLiteral("mine"));
        QVERIFY(page.saveData());
        QCOMPARE(par.objName, letters(24)); // as it is shown
    }

    void isHeard()
    {
        SimpleExtendPar par;
        const SGeneralWgt page(&par, nullptr, nullptr);
        for (const auto &[editor, name] : {std::pair{"nameEdit", "Name"}, {"commentEdit", "Comment"}}) {
            QCOMPARE(heardOf(child(page, editor)).first, name);
        }
    }
};

QTEST_MAIN(TestGeneralPage)
#include "tst_generalpage.moc"
