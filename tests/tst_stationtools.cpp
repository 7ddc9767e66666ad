// The window's commands that answer questions and edit many modules, driven by keys and mouse; dropped files; dialogs.
#include "blockresultsdialog.h"
#include "channelview.h"
#include "filequestions.h"
#include "helpbrowser.h"
#include "helpdialog.h"
#include "memoryview.h"
#include "projectfile.h"
#include "rows.h"
#include "windowfixture.h"

class TestStationTools : public WindowFixture {
    Q_OBJECT

    QString cell(int row, int column) const
    {
        return child<QTableView>("channelTable")->model()->index(row, column).data().toString();
    }
    std::pair<int, int> shownRacksAndSlots() const
    {
        return {Place::rackCount - m_racks->verticalHeader()->hiddenSectionCount(),
                Place::slotCount - m_racks->horizontalHeader()->hiddenSectionCount()};
    }

    /// The addresses of the selected channels, then that of the current one.
    QStringList selectedChannels() const
    {
        const QItemSelectionModel &model = *child<QTableView>("channelTable")->selectionModel();
        QStringList addresses;
        for (const QModelIndex &row : model.selectedRows(4)) {
            addresses += row.data().toString();
        }
        return addresses << model.currentIndex().siblingAtColumn(4).data().toString();
    }

    /// Drags files to the racks and drops them if the window accepts them there.
    bool drop(const QStringList &paths) const
    {
        QMimeData files;
        QList<QUrl> urls;
        for (const QString &path : paths) {
            urls += QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
        }
        files.setUrls(urls);
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({5, 5}, actions, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_racks->viewport(), &enter); // reaches the window because the racks ignore it
        if (!enter.isAccepted() || enter.dropAction() != Qt::CopyAction) {
            return false;
        }
        QDropEvent event({5, 5}, actions, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &event);
        return event.isAccepted();
    }

private slots:
    void initTestCase() { loadPlugin(); }
    void init() { show({{13395, {0, 0}}, {13395, {0, 1}}, {13652, {0, 6}}, {13395, {2, 0}}}); }
    void cleanup() { close(); }

    void findsWhileTyping()
    {
        press(m_racks, Qt::Key_F, Qt::ControlModifier);
        auto *query = child<QLineEdit>("findQuery");
        const auto *results = child<QTreeWidget>("findResults");
        QTest::keyClicks(query, "analog");
        QCOMPARE(results->topLevelItemCount(), 3);
        QCOMPARE(child<QLabel>("findCount")->text(), QString("3 modules found."));
        press(query, Qt::Key_Down);
        press(query, Qt::Key_Return);
        QCOMPARE(m_racks->currentPlace(), (Place{0, 1}));
        QVERIFY(!query->isVisible());
        press(m_racks, Qt::Key_F, Qt::ControlModifier); // the text is selected
        QTest::keyClicks(query, "I 3.7");
        QCOMPARE(results->topLevelItem(0)->text(2), QString("I3.7, channel 31"));
        press(query, Qt::Key_Return);
        QCOMPARE(m_racks->currentPlace(), (Place{0, 6}));
    }

    void channelsFollowEdits()
    {
        auto *table = child<QTableView>("channelTable");
        QCOMPARE(table->model()->rowCount(), 0);
        child<QDockWidget>("channelDock")->raise();
        QTRY_COMPARE(table->model()->rowCount(), 44);
        QCoreApplication::sendPostedEvents(); // the layout
        const QPoint place = child<QCheckBox>("changedOnlyCheck")->pos();
        child<QCheckBox>("changedOnlyCheck")->setChecked(true);
        QCOMPARE(table->model()->rowCount(), 0);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(child<QCheckBox>("changedOnlyCheck")->pos(), place);
        child<QCheckBox>("changedOnlyCheck")->setChecked(false);
        table->sortByColumn(0, Qt::AscendingOrder);
        QTest::keyClicks(child<QLineEdit>("channelSearch"), "aiw 10");
        QCOMPARE(child<QLabel>("channelCount")->text(), QString("1 of 44 channels"));
        QCOMPARE(cell(0, 4), QString("AIW10"));

        answerNext([](QDialog *dialog) { edit(*dialog, "inputRange_1=3 okButton"); });
        doubleClick(table->viewport(), table->visualRect(table->model()->index(0, 4)).center());
        QCOMPARE(m_racks->currentPlace(), (Place{0, 1}));
        QCOMPARE(cell(0, 5), QString("4~20mA"));
        QVERIFY(table->model()->index(0, 5).data(Qt::FontRole).value<QFont>().bold());
        child<QLineEdit>("channelSearch")->clear();
        QCOMPARE(cell(0, 4), QString("AIW0")); // equal racks: the order of the station
        child<QCheckBox>("changedOnlyCheck")->setChecked(true);
        QCOMPARE(table->model()->rowCount(), 1);
        m_racks->setCurrentPlace({0, 6});
        press(m_racks, Qt::Key_Delete);
        QCOMPARE(child<QLabel>("channelCount")->text(), QString("1 of 12 channels"));
        press(m_racks, Qt::Key_Z, Qt::ControlModifier);
        press(table, Qt::Key_A, Qt::ControlModifier);
        press(table, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(
            QApplication::clipboard()->text().startsWith("0\t1\tAnalog Input 4 x U/I\t1\tAIW10\t4~20mA\tFilter: on"));
        m_window->setLanguage(QLocale::Chinese);
        QTRY_VERIFY(cell(0, 6).contains(QStringLiteral(u"\u91cf\u7a0b")));

        child<QCheckBox>("changedOnlyCheck")->setChecked(false);
        m_racks->setCurrentPlace({0, 0});
        press(m_racks, Qt::Key_Delete);
        QCOMPARE(table->model()->rowCount(), 40);
        press(m_racks, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(table->model()->rowCount(), 44);
        press(m_racks, Qt::Key_A, Qt::ControlModifier);
        press(m_racks, Qt::Key_Delete);
        QCOMPARE(table->model()->rowCount(), 0);
        press(m_racks, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(table->model()->rowCount(), 44);
        child<QDockWidget>("memoryDock")->raise();
        QTRY_COMPARE(table->model()->rowCount(), 0); // nothing is read while it is hidden
    }

    void keepsTheSelectedChannels()
    {
        auto *table = child<QTableView>("channelTable");
        child<QDockWidget>("channelDock")->raise();
        QTRY_COMPARE(table->model()->rowCount(), 44);
        table->sortByColumn(4, Qt::DescendingOrder);
        QTest::keyClicks(child<QLineEdit>("channelSearch"), "analog");
        table->selectRow(1);
        table->selectionModel()->select(table->model()->index(5, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
        const QStringList selected{"AIW20", "AIW12", "AIW20"};
        QCOMPARE(selectedChannels(), selected);
        table->setFixedHeight(table->horizontalHeader()->height() + 3 * table->rowHeight(0));
        table->scrollToBottom();
        QTRY_COMPARE(table->rowAt(0), 9);
        press(m_racks, Qt::Key_A, Qt::ControlModifier);
        press(m_racks, Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(m_racks->selectedModules().at(0), (Place{1, 0}));
        QCOMPARE(selectedChannels(), selected);
        QCOMPARE(table->rowAt(0), 9);
        press(m_racks, Qt::Key_Delete);
        QCOMPARE(table->model()->rowCount(), 0);
        trigger("undoAction");
        QCOMPARE(selectedChannels(), selected);
        child<QDockWidget>("memoryDock")->raise();
        QTRY_COMPARE(table->model()->rowCount(), 0);
        child<QDockWidget>("channelDock")->raise();
        QTRY_COMPARE(selectedChannels(), selected);
        m_racks->setCurrentPlace({3, 0}); // of AIW20
        press(m_racks, Qt::Key_Up, Qt::ControlModifier);
        press(m_racks, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(cell(1, 0), QString("0")); // before the other modules, because rack 1 is taken
        QCOMPARE(selectedChannels(), selected);
        answerNext([](QDialog *dialog) { edit(*dialog, "inputRange_2=3 okButton"); });
        press(m_racks, Qt::Key_Return);
        trigger("undoAction");
        QCOMPARE(selectedChannels(), selected);
        child<QLineEdit>("channelSearch")->setText("AIW12");
        trigger("undoAction");
        QCOMPARE(selectedChannels(), (QStringList{"AIW12", "AIW12"}));
        clickNext("unsavedBox", "&Discard");
        trigger("newAction");
        QCOMPARE(selectedChannels(), QStringList(""));
    }

    void opensDroppedFiles()
    {
        const QStringList rejected{"text.txt", "folder.station", "absent.station"};
        const Project empty{1, {}, {}};
        QVERIFY(ProjectFile("dropped.station").write(empty) && ProjectFile("text.txt").write(empty));
        QVERIFY(QDir().mkdir("folder.station"));
        for (const QString &path : rejected) {
            QVERIFY2(!drop({path}), qPrintable(path));
        }
        QVERIFY(!drop({"dropped.station", "dropped.station"}));
        QDialog modal;
        modal.setModal(true);
        modal.show();
        QVERIFY(!drop({"dropped.station"}));
        modal.close();

        trigger("compileAction");
        const QString blocks = "dropped.BLK";
        chooseNext(blocks);
        child<QPushButton>("saveBlockButton")->click();
        QCOMPARE(message(), "Saved " + blocks);
        m_racks->setCurrentPlace({0, 0});
        press(m_racks, Qt::Key_Delete);
        QString question;
        answerNext([&](QDialog *box) {
            question = box->objectName();
            box->reject();
        });
        QVERIFY(drop({"dropped.station"}));
        QTRY_COMPARE(question, QString("unsavedBox"));
        QVERIFY(m_window->windowTitle().startsWith("New station"));
        clickNext("unsavedBox", "&Discard");
        QVERIFY(drop({"dropped.station"}));
        QTRY_VERIFY(m_window->windowTitle().startsWith("dropped.station"));
        QVERIFY(drop({blocks}));
        QTRY_VERIFY2(child<QLabel>("stationSummary")->text().startsWith("4 modules"), qPrintable(message()));
    }

    void keysReachNoHiddenTab()
    {
        auto *search = child<QLineEdit>("catalogSearch");
        for (const char *dock : {"channelDock", "problemDock", "memoryDock"}) {
            const auto *content = child<QDockWidget>(dock)->widget();
            QAction *const toggle = child<QDockWidget>(dock)->toggleViewAction();
            toggle->trigger(); // hides it, also while another tab covers it
            toggle->trigger();
            QTRY_VERIFY(!content->visibleRegion().isEmpty());
            press(search, Qt::Key_Tab);
            bool isReached = false;
            for (const QWidget *each = QApplication::focusWidget(); each != search;
                 each = QApplication::focusWidget()) {
                QVERIFY2(!each->visibleRegion().isEmpty(), qPrintable(each->objectName()));
                isReached = isReached || each == content || content->isAncestorOf(each);
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            }
            QVERIFY(isReached);
        }
    }

    void helpLeavesTheDialogVisible_data()
    {
        const Rows<bool, int> row("isAtLeftEdge", "room"); // in widths of the help
        row("to the right", true, 2);
        row("narrow, to the right", true, 1);
        row("to the left", false, 2);
        row("narrow, to the left", false, 1);
    }
    void helpLeavesTheDialogVisible()
    {
        const QRect screen = m_window->screen()->availableGeometry();
        QDialog dialog;
        const int room = fetched<int>("room") * (HelpBrowser(nullptr).minimumWidth() + 8);
        const bool isLeft = fetched<bool>("isAtLeftEdge");
        dialog.setGeometry(screen.adjusted(isLeft ? 0 : room, 0, isLeft ? -room : 0, -100));
        dialog.show();
        HelpDialog::showFor(dialog, {});
        const QRect help = ::child<QDialog>(dialog, "helpDialog")->geometry();
        QVERIFY(screen.contains(help) && !help.intersects(dialog.geometry()));
    }

    void pastesParametersToTheSelection()
    {
        m_racks->setCurrentPlace({0, 0});
        answerNext([](QDialog *dialog) { edit(*dialog, "inputRange_2=3 okButton"); });
        press(m_racks, Qt::Key_Return);
        press(m_racks, Qt::Key_C, Qt::ControlModifier);
        press(m_racks, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(m_racks->selectionModel()->selectedIndexes().size(), 4); // no free slots
        press(m_racks, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(message(),
                 QString("Parameters pasted to 2 modules; 1 had them already; 1 of another type left alone"));
        QCOMPARE(m_racks->selectedModules().size(), 4);
        QVERIFY(child<QAction>("undoAction")->toolTip().contains("Paste parameters to 2 modules (Ctrl+Z)"));
    }

    void showsUsedRacksAndOneMore()
    {
        QVERIFY(shownRacksAndSlots() == std::pair(4, 8));
        m_racks->setCurrentPlace({2, 0});
        press(m_racks, Qt::Key_Delete);
        QVERIFY(shownRacksAndSlots() == std::pair(3, 8)); // the current slot stays
        m_racks->setCurrentPlace({9, 10});
        QVERIFY(shownRacksAndSlots() == std::pair(10, 11));
        trigger("allSlotsAction");
        QVERIFY(shownRacksAndSlots() == std::pair(Place::rackCount, Place::slotCount));
        trigger("allSlotsAction");
        const int height = m_racks->rowHeight(0);
        trigger("largerCardsAction");
        QVERIFY(m_racks->rowHeight(0) > height);
        trigger("undoAction"); // nothing to save
        trigger("newAction");
        QVERIFY(shownRacksAndSlots() == std::pair(1, 4));
    }

    void comparesWithAProject()
    {
        Project other;
        other.plcType = 1;
        QVERIFY(ProjectFile("other.station").write(other));
        chooseNext("other.station");
        trigger("compareAction");
        auto *list = child<QTreeWidget>("differenceList");
        const QList<QTreeWidgetItem *> found = list->findItems("only here", Qt::MatchExactly, 2);
        QCOMPARE(found.size(), 4);
        QCOMPARE(list->topLevelItem(0)->toolTip(3), QString("Standard"));
        doubleClick(list->viewport(), list->visualItemRect(found.last()).center());
        QCOMPARE(m_racks->currentPlace(), (Place{2, 0}));
        QApplication::clipboard()->setText("kept");
        list->setCurrentItem(found.first());
        press(list, Qt::Key_Return);
        QCOMPARE(m_racks->currentPlace(), (Place{0, 0}));
        QCOMPARE(QApplication::clipboard()->text(), QString("kept"));
    }

    void editsPropertiesAndReports()
    {
        answerNext([](QDialog *dialog) {
            edit(*dialog, "titleEdit=Plant");
            dialog->accept();
        });
        trigger("projectPropertiesAction");
        QVERIFY(m_window->isWindowModified());
        int pages = 0;
        answerNext([&](QDialog *preview) {
            chooseNext("report.html");
            preview->findChild<QAction *>("saveReportAction")->trigger();
            pages = preview->findChild<QLineEdit *>()->isVisible() ? 1 : 0;
            preview->reject();
        });
        press(m_racks, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(pages, 1);
        QVERIFY(contentOf("report.html").contains("<h1>Plant</h1>"));
    }

    void truncatesNoMessage()
    {
        m_racks->setCurrentPlace({0, 0});
        answerNext([](QDialog *dialog) {
            edit(*dialog, "slotSpin=6");
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
            const auto *occupant = dialog->findChild<QLabel *>("occupantLabel");
            QVERIFY(occupant->text().contains("taken by \"Digital Input 32 x 24 V\""));
            QVERIFY(occupant->width() >= occupant->sizeHint().width());
            dialog->reject();
        });
        trigger("placeAction");

        BlockResult result;
        result.error = QString("A sentence of the plug-in. ").repeated(8);
        BlockResultsDialog dialog(1, {BlockResult(), result}, m_window.get());
        dialog.show();
        const auto *list = dialog.findChild<QTreeWidget *>("resultList");
        const auto rowHeight = [&](int row) { return list->visualItemRect(list->topLevelItem(row)).height(); };
        QTRY_VERIFY(rowHeight(1) > rowHeight(0));
    }

    void explainsItsCommands()
    {
        QCOMPARE(child<QAction>("findAction")->toolTip(), QString("Find (Ctrl+F)"));
        QVERIFY(m_window->frameGeometry().width() <= m_window->screen()->availableSize().width());
        const auto progress = newProgressDialog(m_window.get(), {});
        QVERIFY(progress->width() > 2 * m_window->fontMetrics().horizontalAdvance(progress->windowTitle()));
        QString listed;
        answerNext([&](QDialog *dialog) {
            for (const QTreeWidgetItem *item :
                 dialog->findChild<QTreeWidget *>("shortcutList")->findItems("Report", Qt::MatchRecursive)) {
                listed += item->text(1);
            }
            dialog->reject();
        });
        trigger("shortcutsAction");
        QCOMPARE(listed, QString("Ctrl+P"));
        answerNext([&](QDialog *dialog) {
            listed = qobject_cast<QMessageBox *>(dialog)->informativeText();
            dialog->reject();
        });
        trigger("aboutAction");
        QVERIFY(listed.contains("libsimpleextend.so") && listed.contains(qVersion()));
    }

    void memoryMapHasRoomForEveryStrip()
    {
        auto *map = child<MemoryView>("memoryView");
        const int scrollBar = map->horizontalScrollBar()->sizeHint().height();
        QVERIFY(map->sizeHint().height() >= map->widget()->minimumSizeHint().height() + scrollBar);
        auto *strip = child<MemoryStrip>("memoryStrip_AI");
        answerNext([](QDialog *dialog) { edit(*dialog, "nameEdit=Oven okButton"); });
        doubleClick(strip, QPoint(1, strip->height() - 10));
        QVERIFY(m_racks->model()->index(0, 0).data(Qt::AccessibleTextRole).toString().contains("Oven"));
        const int height = strip->sizeHint().height();
        QFont larger = strip->font();
        larger.setPointSizeF(2 * larger.pointSizeF());
        const int bar = strip->barHeight();
        strip->setFont(larger);
        QVERIFY(strip->barHeight() > bar && strip->sizeHint().height() > height);
        const QImage before = strip->grab().toImage();
        QTest::mouseMove(strip, QPoint(2, strip->height() / 2));
        QTRY_VERIFY(strip->grab().toImage() != before); // names the range under the mouse
    }
};

QTEST_MAIN(TestStationTools)
#include "tst_stationtools.moc"
