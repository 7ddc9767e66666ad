// One value for many channels, by shortcut and by context menu, and the keyboard focus in the columns of editors.
#include "channelkinds.h"
#include "pagefixture.h"
#include "rows.h"

#include <QAction>
#include <QMenu>
#include <QTableWidget>
#include <QToolTip>

using namespace channelkinds;

namespace {

const auto applyKeys = Qt::ControlModifier | Qt::ShiftModifier;

/// Clicks the channel numbers of a table: "0" selects one channel, "+2" adds one, "-3" extends the selection.
void clickChannels(const QWidget &page, const QString &channels)
{
    auto *table = page.findChild<QTableWidget *>();
    const auto modifierOf = [](QChar sign) {
        return sign == '+' ? Qt::ControlModifier : sign == '-' ? Qt::ShiftModifier : Qt::NoModifier;
    };
    for (const QString &channel : channels.split(',')) {
        const QModelIndex cell = table->model()->index(qAbs(channel.toInt()), 0);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifierOf(channel[0]), table->visualRect(cell).center());
    }
}

} // namespace

class TestChannelActions : public QObject {
    Q_OBJECT
private slots:
    void cleanup()
    {
        m_page.reset();
        QToolTip::hideText();
    }

    // The words of steps are edits, as edit() reads them, or: @EDITOR sets the focus, #CHANNELS clicks channel numbers,
    // and "apply", "fill" and "reset" press the shortcut. The default record is null for "none".
    void changesChannels_data()
    {
        const Rows<const Kind *, QString, QString, QString, QString, QString> rows("kind", "record", "steps", "saved",
                                                                                   "message", "defaults");
        const auto row = [&rows](const char *name, const Kind &kind, const char *record, const char *steps,
                                 const char *saved, const QString &message, const char *defaults = "none") {
            rows(name, &kind, record, steps, saved, message, defaults);
        };
        const QString reset = "Reset to the default value.";
        const QString noValue = "There is no valid value to apply.";
        const QString all2 = "Applied to 2 of 2 channels.";
        const QString all3 = "Applied to 3 of 3 channels.";
        const QString all4 = "Applied to 4 of 4 channels.";
        const Kind &range = aiRange<13395>;

        row("a choice to all", aqType, "0/0 1/2 0/3", "range_1=1 @range_1 apply", "0/1 1/1 0/1", all3);
        row("a choice to those below", aqType, "0/0 1/2 0/3", "@range_1 fill", "0/0 1/2 0/2", all2);
        row("fill from the last", aqType, "0/0 1/2", "@range_1 fill", "0/0 1/2", "Applied to 1 of 1 channels.");
        row("a choice that no row shows", aqType, "0/9 1/2", "@range_0 apply", "0/255 1/2", noValue);
        row("a default choice", aqType, "0/0 1/2 0/3", "@range_2 reset", "0/0 1/2 0/2", reset, "1/0 1/1 1/2");
        row("one request for all defaults", aqType, "0/0 1/2", "@range_0 reset @range_1 reset defaultsButton",
            "1/3 1/3", "", "1/3 1/3");
        row("no default record", aqType, "0/0 1/2", "@range_1 reset", "0/0 1/2", "There is no default value.");
        row("no editor has the focus", aqType, "0/0 1/2", "@defaultsButton apply fill reset", "0/0 1/2", "");

        row("a check box", aiFilter, "0/0/0 1/1/16 0/2/32", "@filterOn_1 apply", "1/0/0 1/1/16 1/2/32", all3);
        row("a typed number", aiFilter, "0/0/0 1/1/16", "deadband_0=4080 apply", "0/0/4080 1/1/4080", all2);
        row("a default number", aiFilter, "1/1/16 1/1/16", "@deadband_1 reset", "1/1/16 1/1/480", reset, "0 0/0/480");

        row("a range", range, "0:0/0/0/2 0:0/0/1/2 0:0/0/3/0/1", "inputRange_0=3 @inputRange_0 apply",
            "0/0/3/1 0/0/3/1 0/0/3/0/1", all3);
        row("disabled editors stay", range, "0:0/0/3/0 0:0/0/0/2 0:0/0/3/1 0:0/0/1/2", "@openWire_0 apply",
            "0/0/3/0 0/0/0/2 0/0/3/0 0/0/1/2", "Applied to 2 of 4 channels. 2 are disabled.");
        row("other signal families stay", range, "0:0/0/2/2 1:0/0/4/1 2:0/0/5/1 0:0/0/0/2", "@inputRange_0 apply",
            "0/0/2/2 0/0/4/1 0/0/5/1 0/0/2/2", "Applied to 2 of 4 channels. 2 do not offer this value.");
        row("codes of another family", range, "0:0/4/0/2 1:0/3/4/1", "@filterTime_0 apply", "0/4/0/2 0/0/4/1", all2);
        row("the default of a family", range, "0:0/0/3/1 1:0/4/4/1", "@filterTime_1 reset", "0/0/3/1 0/2/4/1", reset,
            "0:0/1/2/2 1:0/2/8/0");
        row("a default range", range, "0:0/0/3/1 0:0/0/3/1", "@inputRange_1 reset", "0/0/3/1 0/0/1/2", reset,
            "0:0/1/2/2 0:0/1/1/2");
        row("selected channels", range, "0:1/0/0/2 0:0/0/0/2 0:0/0/0/2 0:0/0/0/2", "@enable_0 #2,+3 apply",
            "1/0/0/2 0/0/0/2 1/0/0/2 1/0/0/2", all2);
        row("a block of selected channels", weighing, "0 1 1 1", "@enable_0 #1,-3 apply", "0 0 0 0", all3);
        row("one selected channel is no selection", weighing, "0 1 1", "@enable_0 #1 apply", "0 0 0", all3);
        row("fill ignores the selection", weighing, "1 0 1 1", "@enable_1 #0,+1 fill", "1 0 0 0", all3);

        row("a stop value", aqTable, "0/5 0/6 1/7", "stopValue_0=-12 apply", "0/-12 0/-12 1/7",
            "Applied to 2 of 3 channels. 1 is disabled.");
        row("half a stop value", aqTable, "0/5 0/6", "stopValue_0=- apply", "0/0 0/6", noValue);
        row("freezing disables", aqTable, "1/5 0/6", "@freeze_0 apply @stopValue_1 fill", "1/5 1/6", "");
        row("a default stop value", aqTable, "0/5 0/6", "@stopValue_1 reset", "0/5 0/-80", reset, "0/70 0/-80");

        row("a sensitivity replaces NaN", weighing, "1/0 1/nan 1/3", "@sensitivity_0 apply", "1/0 1/0 1/0", all3);
        row("a weighing default", weighing, "0/3/1/7 0/3/1/8", "@filterDepth_1 reset", "0/3/1/7 0/3/1/15", reset);

        row("input delays", diFilter, "16 5312", "filter_1=6 @filter_1 apply", "6666", all4);
        row("a default delay of an odd row", diFilter, "16 0000", "@filter_3 reset", "0030", reset, "16 1234");
        row("a delay without a default", diFilter, "16 0000", "@filter_3 reset", "0050", reset, "16 12");
        row("outputs", dqTable, "10 A000", "@output_2 fill", "2:bfc0", "Applied to 8 of 8 channels.");
        row("a default output", dqTable, "10 0000", "@output_9 reset", "2:0040", reset, "10 0040");
        row("frozen outputs stay", dqTable, "10 0000 1", "@output_9 reset apply", "1:0000", "", "10 FFC0");
    }
    void changesChannels()
    {
        QFETCH(QString, message);
        open();
        const QString before = m_kind->text(m_par);
        for (const QString &step : fetched<QString>("steps").split(' ')) {
            take(step);
        }
        QCOMPARE(m_kind->text(m_par), before); // only OK writes
        QVERIFY(m_page->saveData());
        // The text of a record has all fields; the rows leave out those at the end that are zero or a factory value.
        QFETCH(QString, saved);
        const bool isDigital = m_kind == &diFilter || m_kind == &dqTable;
        QCOMPARE(m_kind->text(m_par), isDigital ? saved : m_kind->text(m_kind->record(saved)));
        QVERIFY2(m_requests <= 1, "the default record is requested again");
        if (!message.isEmpty()) {
            QCOMPARE(m_explained->accessibleDescription(), message);
            QTRY_COMPARE(QToolTip::text(), message);
        }
    }

    void applyIsNamedAfterTheSelection()
    {
        openPage(&weighing, "1 1 1", "none");
        const auto *apply = m_page->findChild<QAction *>("applyToAllAction");
        QStringList names{apply->text()};
        for (const QString channels : {"1", "+2"}) {
            clickChannels(*m_page, channels);
            names << apply->text();
        }
        QVERIFY(openMenu("enable_1") != nullptr); // does not change the selection
        names << apply->text();
        QApplication::activePopupWidget()->close();
        clickChannels(*m_page, "0");
        names << apply->text();
        QCOMPARE(names.replaceInStrings("Apply to ", "").replaceInStrings(" Channels", "").join(", "),
                 QString("All, All, Selected, Selected, All"));
    }

    void contextMenuHasTheActions_data()
    {
        const QString edits = "Undo,Redo,Cut,Copy,Paste,Delete,Select All,";
        const Rows<const Kind *, QString, QString, QString, int> row("kind", "record", "editor", "own", "steppedDown");
        row("choice", &aqType, "0/0 1/2", "range_1", "", 0);
        row("check box", &aiFilter, "0/0/0 1/1/16", "filterOn_1", "", 0);
        row("number at its minimum", &aiFilter, "0/0/0 1/1/0", "deadband_1", edits + "Step up,(Step down),", 0);
        row("number", &aiFilter, "0/0/0 1/1/32", "deadband_1", edits + "Step up,Step down,", 16);
        row("text", &aqTable, "0/5 0/6", "stopValue_1", edits, 0);
    }
    void contextMenuHasTheActions()
    {
        open();
        auto *const widget = child(*m_page, fetched<QString>("editor"));
        QMenu *const menu = openMenu(fetched<QString>("editor"));
        QVERIFY(menu != nullptr);
        QString entries;
        for (QAction *action : menu->actions()) {
            if (!action->isSeparator() && action->parent() != m_page.get()) {
                const QString text = action->text().section('\t', 0, 0).remove('&');
                entries += QString(action->isEnabled() || !text.startsWith("Step") ? "%1," : "(%1),").arg(text);
                if (text == "Step down") {
                    action->trigger();
                }
            }
        }
        QCOMPARE(entries, fetched<QString>("own"));
        QTEST(widget->property("value").toInt(), "steppedDown");
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}) { // up to the last entries
            QTest::keyClick(menu, key);
        }
        QCOMPARE(widget->accessibleDescription(), QString("Applied to 2 of 2 channels."));
    }

    // Keys from the editor with the focus: ^ up, v down, < first, > last channel, all with Ctrl; | is Tab.
    void focusMoves_data()
    {
        const Rows<const Kind *, QString, QString, QString> row("kind", "record", "keys", "way");
        row("up and down", &aiFilter, "- - -", "deadband_1 v ^ ^ ^", "deadband_2 deadband_1 deadband_0 deadband_0");
        row("first and last", &weighing, "- - -", "enable_1 > < v >", "enable_2 enable_0 enable_1 enable_2");
        row("row by row", &aqTable, "- -", "freeze_0 | | |", "stopValue_0 freeze_1 stopValue_1");
        row("disabled editors are skipped", &aqTable, "1/0 0/0 1/0 0/0 1/0", "stopValue_1 v > < v",
            "stopValue_3 stopValue_3 stopValue_1 stopValue_3");
    }
    void focusMoves()
    {
        QFETCH(QString, keys);
        open();
        const QStringList words = keys.split(' ');
        take('@' + words.first());
        const QMap<QString, Qt::Key> codes{
            {"^", Qt::Key_Up}, {"v", Qt::Key_Down}, {"<", Qt::Key_Home}, {">", Qt::Key_End}};
        QStringList way;
        for (const QString &word : words.mid(1)) {
            const QVariant before = QApplication::focusWidget()->property("value");
            QWidget *const editor = QApplication::focusWidget();
            QTest::keyClick(editor, codes.value(word, Qt::Key_Tab), word == "|" ? Qt::NoModifier : Qt::ControlModifier);
            QCOMPARE(editor->property("value"), before); // spin boxes step with the same keys
            way << QApplication::focusWidget()->objectName();
        }
        QTEST(way.join(' '), "way");
    }

private:
    void open()
    {
        const bool hasDefaults = QByteArray(QTest::currentTestFunction()) == "changesChannels";
        openPage(fetched<const Kind *>("kind"), fetched<QString>("record"),
                 hasDefaults ? *static_cast<QString *>(QTest::qData("defaults", QMetaType::QString)) : "none");
    }

    /// Opens the page, which requests its default record.
    void openPage(const Kind *kind, const QString &record, const QString &defaults)
    {
        m_kind = kind;
        m_par = kind->record(record);
        m_defaults = defaults == "none" ? Par() : kind->record(defaults);
        m_page = kind->make(m_par, nullptr, nullptr);
        m_requests = 0;
        if (auto *const page = qobject_cast<RecordDefaultsPage *>(m_page.get())) {
            connect(page, &RecordDefaultsPage::signal_requestDefaultPar, page, [this, isThere = defaults != "none"] {
                ++m_requests;
                return isThere ? &m_defaults : nullptr;
            });
        }
        m_page->resize(900, 500);
        m_page->show();
        QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    }

    /// Returns the context menu of an editor.
    QMenu *openMenu(const QString &editor)
    {
        const QWidget *const widget = child(*m_page, editor);
        const QPoint place = widget->mapTo(m_page.get(), widget->rect().center());
        QTest::mouseClick(m_page->windowHandle(), Qt::RightButton, {}, place);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    void take(const QString &step)
    {
        static const QMap<QString, QPair<Qt::Key, Qt::KeyboardModifiers>> keys{
            {"apply", {Qt::Key_D, applyKeys}},
            {"fill", {Qt::Key_D, Qt::ControlModifier}},
            {"reset", {Qt::Key_R, Qt::ControlModifier}}};
        if (keys.contains(step)) {
            QTest::keyClick(m_page->focusWidget(), keys[step].first, keys[step].second);
        } else if (step.startsWith('#')) {
            clickChannels(*m_page, step.mid(1));
        } else if (step.startsWith('@')) {
            m_explained = child(*m_page, step.mid(1));
            m_explained->setFocus();
        } else {
            m_explained = child(*m_page, step.section('=', 0, 0));
            m_explained->setFocus();
            edit(*m_page, step);
        }
    }

    const Kind *m_kind = nullptr;
    Par m_par;
    Par m_defaults;
    PagePtr m_page;
    QWidget *m_explained = nullptr; ///< the last editor with the focus
    int m_requests = 0;
};

QTEST_MAIN(TestChannelActions)
#include "tst_channelactions.moc"
