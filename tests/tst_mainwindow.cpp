// The workbench's window, driven through its widgets: catalog, racks, properties dialog, memory map, files.
#include "blockview.h"
#include "catalogfolder.h"
#include "catalogview.h"
#include "helpdock.h"
#include "helpsharemodule.h"
#include "memoryview.h"
#include "projectfile.h"
#include "recoverycopy.h"
#include "rows.h"
#include "statepatch.h"
#include "windowfixture.h"

class TestMainWindow : public WindowFixture {
    Q_OBJECT

    QString cell(Place place) const { return m_racks->model()->data(at(place), Qt::AccessibleTextRole).toString(); }
    QModelIndex at(Place place) const { return m_racks->model()->index(place.rack, place.slot); }
    static QStringList settingsFiles()
    {
        return QSettings("simpleextend", "workbench").value("recentFiles").toStringList();
    }
    QString summary() const { return child<QLabel>("stationSummary")->text(); }
    QString freeText(const char *strip) const { return child<MemoryStrip>(strip)->accessibleDescription(); }

    void add(const QString &search) const
    {
        auto *field = child<QLineEdit>("catalogSearch");
        field->setText(search);
        press(field, Qt::Key_Return);
    }

    /// A project with a module of a type that the catalog lacks, in rack 0, slot 1.
    Project partlyUnavailable() const
    {
        Station station(m_plugin, "unavailable");
        if (!station.add(13650, {0, 0}) || !station.add(13650, {0, 1})) {
            qFatal("no module");
        }
        Project project = station.project();
        project.modules[1].state = withFields(project.modules[1].state, {{"objId", {"\0\0\0\1", 4}}});
        return project;
    }

    /// Drags the data to the slot and drops it there. False if the view accepts neither.
    bool drop(const QMimeData &data, Place to) const
    {
        m_racks->scrollTo(at(to));
        const QPoint point = m_racks->visualRect(at(to)).center();
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent over(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QDropEvent event(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        for (QEvent *each : std::initializer_list<QEvent *>{&enter, &over, &event}) {
            QApplication::sendEvent(m_racks->viewport(), each);
        }
        return over.isAccepted() && event.isAccepted();
    }

private slots:
    void initTestCase() { loadPlugin(); }
    void init() { show(); }
    void cleanup() { close(); }

    void editsSavesAndOpens()
    {
        add("4 x TC");
        add("SX-DI08");
        QCOMPARE(cell({0, 0}),
                 QString("Rack 0, slot 0: Analog Input 4 x TC, Type 13396, order number SX-AI04-TC, AI 0..7"));
        QVERIFY(cell({0, 1}).endsWith("I 0"));
        QVERIFY(m_window->isWindowModified());

        m_racks->setCurrentPlace({0, 0});
        answerNext([](QDialog *dialog) { edit(*dialog, "nameEdit=Furnace inputStart=100 okButton"); });
        press(m_racks, Qt::Key_Return);
        const QString edited = "Rack 0, slot 0: Furnace, Type 13396, order number SX-AI04-TC, AI 100..107";
        QCOMPARE(cell({0, 0}), edited);
        QTRY_COMPARE(freeText("memoryStrip_AI"), QString("2040 of 2048 bytes free, longest gap 1940"));

        chooseNext("walk.station");
        trigger("saveAction");
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(m_window->windowTitle(), QString("walk.station[*] - Module Workbench"));

        trigger("newAction");
        QCOMPARE(cell({0, 0}), QString("Rack 0, slot 0: free"));
        QVERIFY(m_window->openFile("walk.station"));
        QCOMPARE(cell({0, 0}), edited);
        QVERIFY(cell({0, 1}).contains("Digital Input 8"));
    }

    void undoesAndRedoesEdits()
    {
        add("Relay");
        const QString placed = cell({0, 0});
        m_racks->setCurrentPlace({0, 0});
        QApplication::clipboard()->setText("text");
        QVERIFY(!child<QAction>("pasteAction")->isEnabled());
        trigger("copyAction");
        QVERIFY(child<QAction>("pasteAction")->isEnabled());
        trigger("pasteAction");
        QVERIFY(cell({0, 1}).endsWith("Q 2..3"));
        press(m_racks, Qt::Key_Down, Qt::ControlModifier); // the pasted module is current
        QVERIFY(cell({1, 1}).endsWith("Q 2..3"));
        answerNext([](QDialog *dialog) {
            const auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            edit(*dialog, "rackSpin=0 slotSpin=0");
            const bool offersTakenSlot = ok->isEnabled();
            edit(*dialog, "slotSpin=5");
            dialog->done(ok->isEnabled() && !offersTakenSlot ? QDialog::Accepted : QDialog::Rejected);
        });
        trigger("placeAction");
        QVERIFY(cell({0, 5}).endsWith("Q 2..3"));
        m_racks->setCurrentPlace({0, 0});
        QVERIFY(child<QAction>("removeAction")->isEnabled());
        press(m_racks, Qt::Key_Delete);
        QVERIFY(!child<QAction>("removeAction")->isEnabled());
        trigger("undoAction");
        trigger("redoAction");
        QCOMPARE(cell({0, 0}), QString("Rack 0, slot 0: free"));
        for (int step = 0; step < 4; ++step) {
            press(m_racks, Qt::Key_Z, Qt::ControlModifier);
        }
        QCOMPARE(cell({0, 0}), placed);
        QVERIFY(summary().startsWith("1 module"));
        QTRY_COMPARE(freeText("memoryStrip_Q"), QString("1022 of 1024 bytes free, longest gap 1022"));
    }

    void dropsModulesOnFreeSlotsOnly()
    {
        QMimeData type;
        type.setData(CatalogView::mimeType(), "13395");
        QVERIFY(drop(type, {0, 1}));
        QVERIFY(!drop(type, {0, 1}));
        QVERIFY(message().contains("slot 1 is taken by \"Analog"));
        static_cast<RackModel *>(m_racks->model())->setGrabbed({0, 1});
        const std::unique_ptr<QMimeData> module(m_racks->model()->mimeData({at({0, 1})}));
        QVERIFY(!drop(*module, {0, 1}));
        QVERIFY(drop(*module, {1, 0}));
        QVERIFY(cell({1, 0}).contains("AI 0..7"));
        QVERIFY(summary().startsWith("1 module"));
    }

    void movesASelectionAsOne()
    {
        add("4 x TC");
        add("SX-DI08");
        m_racks->setCurrentPlace({0, 0});
        press(m_racks, Qt::Key_Right, Qt::ShiftModifier);
        static_cast<RackModel *>(m_racks->model())->setGrabbed({0, 1});
        const std::unique_ptr<QMimeData> modules(m_racks->model()->mimeData({at({0, 0}), at({0, 1})}));
        QVERIFY(!drop(*modules, {0, 0})); // the first one would leave the rack
        QVERIFY(drop(*modules, {0, 2}));  // into a slot that the second one leaves
        QVERIFY(cell({0, 0}).endsWith("free") && cell({0, 1}).contains("TC") && cell({0, 2}).contains("Digital"));
        QCOMPARE(m_racks->selectedModules().size(), 2);
        press(m_racks, Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(cell({1, 1}).contains("TC") && cell({1, 2}).contains("Digital"));
        trigger("undoAction");
        trigger("undoAction");
        QVERIFY(cell({0, 0}).contains("TC") && cell({0, 1}).contains("Digital"));
        QCOMPARE(m_racks->selectedModules().size(), 2);
        QVERIFY2(message().startsWith("Undone: Move"), qPrintable(message()));

        press(m_racks, Qt::Key_X, Qt::ControlModifier);
        m_racks->setCurrentPlace({4, 4});
        press(m_racks, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(cell({4, 4}).endsWith("AI 0..7") && cell({4, 5}).endsWith("I 0"));
        QVERIFY(message().endsWith("with the former addresses."));
        QCOMPARE(m_racks->selectedModules().size(), 2);
        press(m_racks, Qt::Key_Delete);
        QCOMPARE(message(), QString("2 modules removed"));
    }

    void selectsInBothDirections()
    {
        add("2 x Double");
        add("4 x RTD");
        auto *strip = child<MemoryStrip>("memoryStrip_V");
        QTRY_VERIFY(strip->accessibleDescription().startsWith("16372 of"));
        QCOMPARE(m_racks->currentPlace(), (Place{0, 1}));
        QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, QPoint(1, strip->height() - 10));
        QCOMPARE(m_racks->currentPlace(), (Place{0, 0}));
        press(m_racks, Qt::Key_End, Qt::ControlModifier);
        QVERIFY(m_racks->selectedModules().isEmpty());
        QVERIFY(m_racks->actions().contains(child<QAction>("addAction"))); // in the context menu of a free slot
    }

    void showsTheFieldsOfCompiledBlocks()
    {
        add("4 x TC");
        trigger("compileAction");
        auto *view = child<BlockView>("blockView");
        const auto *list = child<QTreeWidget>("blockList");
        QCOMPARE(list->topLevelItem(0)->text(2), QString("Analog Input 4 x TC"));
        const auto *fields = child<QTreeWidget>("blockFields");
        QVERIFY(!fields->findItems("analogInput[3].", Qt::MatchStartsWith | Qt::MatchRecursive).isEmpty());
        const auto *note = view->findChild<QWidget *>("outdatedNote");
        QVERIFY(!note->isVisible());
        add("SX-DI08");
        QVERIFY(note->isVisible());
        view->findChild<QPushButton *>("compileAgainButton")->click();
        QVERIFY(!note->isVisible());
        QCOMPARE(list->topLevelItemCount(), 2);
        QVERIFY(list->currentItem()->text(2).endsWith("TC"));
        trigger("compileAction"); // shows the block of the current module
        view->findChild<QPushButton *>("compileAgainButton")->click();
        QVERIFY(list->currentItem()->text(2).startsWith("Digital Input 8"));
        QCOMPARE(m_window->findChildren<BlockView *>().size(), 1);
    }

    void showsUnavailableModules()
    {
        QVERIFY(ProjectFile("part.station").write(partlyUnavailable()));
        clickNext("problemBox", "OK");
        QVERIFY(m_window->openFile("part.station"));
        trigger("compileAction");
        const auto *view = child<BlockView>("blockView");
        QVERIFY(view->findChild<QLabel *>("blockSummary")->text().startsWith("1 of 2 modules"));
        QVERIFY(view->findChild<QLabel *>("missingModules")->text().contains("in rack 0, slot 1."));
        QTRY_COMPARE(child<QToolButton>("problemCount")->text(), QString("1 problem"));
        m_racks->setCurrentPlace({5, 5});
        child<QToolButton>("problemCount")->click();
        auto *problems = child<QTreeView>("problemView");
        problems->scrollTo(problems->model()->index(0, 0));
        doubleClick(problems->viewport(), problems->visualRect(problems->model()->index(0, 0)).center());
        QCOMPARE(m_racks->currentPlace(), (Place{0, 1}));
        add("Relay");
        QSignalSpy refreshed(problems->model(), &QAbstractItemModel::modelReset);
        QVERIFY(refreshed.wait() && problems->currentIndex().isValid());
        m_racks->setCurrentPlace({0, 1});
        press(m_racks, Qt::Key_Delete);
        QTRY_COMPARE(child<QToolButton>("problemCount")->text(), QString("No problems"));
    }

    void showsTheLineOfAnUnusableDescription()
    {
        CatalogFolder catalog;
        catalog.writeDescription(13652, "; comment\n[MODULE START]\nObjName=Unended\n");
        catalog.writeModule(13650, 8, "ObjName=" + QByteArray(300, 'W') + '\n');
        show();
        QVERIFY(m_window->minimumSizeHint().width() < 1200);
        auto *problems = child<QTreeView>("problemView");
        emit problems->activated(problems->model()->index(0, 0));
        QCOMPARE(child<QPlainTextEdit>("fileText")->textCursor().selectedText(), QString("[MODULE START]"));
    }

    void asksBeforeItOverwritesAChangedFile()
    {
        add("4 x TC");
        chooseNext("changed.station");
        trigger("saveAction");
        QCOMPARE(settingsFiles().value(0), m_folder.filePath("changed.station")); // a killed program loses none
        QVERIFY(ProjectFile("changed.station").write(partlyUnavailable()));
        add("SX-DI08");
        clickNext("changedBox", "Cancel");
        trigger("saveAction");
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(ProjectFile("changed.station").read()->modules[1].typeCode, 13650U);
        clickNext("changedBox", "&Overwrite");
        trigger("saveAction");
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(ProjectFile("changed.station").read()->modules[0].typeCode, 13396U);
    }

    void recoversADamagedProjectAndAKilledProgramsStation()
    {
        QVERIFY(ProjectFile("damaged.station").write(partlyUnavailable()));
        QFile file("damaged.station");
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(70) && file.write("x"));
        file.close();
        clickNext("recoverBox", "Cancel");
        QVERIFY(!m_window->openFile("damaged.station"));
        clickNext("recoverBox", "&Recover");
        QTimer::singleShot(0, this, [this] { clickNext("lossesBox", "OK"); });
        QVERIFY(m_window->openFile("damaged.station"));
        QVERIFY(m_window->isWindowModified() && m_window->windowTitle().startsWith("New station"));

        QVERIFY(!m_window->offerRecovery());
        QVERIFY(RecoveryCopy(RecoveryCopy::defaultFolder())
                    .write({partlyUnavailable(), m_folder.filePath("killed[*].station"), "x",
                            QDateTime::currentDateTime()}));
        clickNext("recoveryBox", "Ask &Later");
        QVERIFY(!m_window->offerRecovery());
        clickNext("recoveryBox", "&Recover");
        QVERIFY(m_window->offerRecovery());
        QVERIFY(m_window->isWindowModified() && m_window->windowTitle().startsWith("killed[*][*].station"));
        QVERIFY(!m_window->offerRecovery());
    }

    void helpIsUsableBesideTheModalDialog()
    {
        add("4 x TC");
        QString page;
        bool hasScrolled = false;
        answerNext([&](QDialog *dialog) {
            dialog->findChild<QPushButton *>("helpButton")->click();
            auto *browser = child<QTextBrowser>("helpDialogBrowser");
            browser->window()->resize(200, 100);
            page = browser->source().fileName();
            QTest::keyClick(browser->window()->windowHandle(), Qt::Key_End); // not if it is blocked
            hasScrolled = QTest::qWaitFor([=] { return browser->verticalScrollBar()->value() > 0; }, 1000);
            dialog->reject();
        });
        press(m_racks, Qt::Key_Return);
        QVERIFY(hasScrolled);
        QCOMPARE(page, QString("temperature.html"));
        QVERIFY(!child<HelpDock>("helpDock")->isVisible());
        QVERIFY(m_window->findChild<QTextBrowser *>("helpDialogBrowser") == nullptr);
    }

    void opensHelpOfKeywords_data()
    {
        const Rows<QString, QString> row("keyword", "page");
        row("analog", "Analog Modules Properties", "en/analog.html");
        row("temperature, in Chinese", "TC/RTD模块属性", "en/temperature.html");
        row("digital", "Digital Modules Properties", "en/digital.html");
        row("weighing, in Chinese", "称重模块属性", "en/weighing.html");
        row("no keyword", "", "en/overview.html");
    }
    void opensHelpOfKeywords()
    {
        QFETCH(QString, page);
        startHelpSys(fetched<QString>("keyword"));
        const auto *browser = child<QTextBrowser>("helpBrowser");
        QVERIFY(child<HelpDock>("helpDock")->isVisible() && !browser->toPlainText().isEmpty());
        QCOMPARE(browser->source().toString(), "qrc:/help/" + page);
        QCOMPARE(browser->toPlainText().contains("Apply to All Channels"), !page.contains("overview"));
        m_window->setLanguage(QLocale::Chinese);
        QTRY_COMPARE(browser->source().toString(), "qrc:/help/" + page.replace("en/", "zh/"));
    }

    void toolBarShowsNoMnemonics()
    {
        m_window->setLanguage(QLocale::Chinese);
        QTRY_VERIFY(child<QAction>("newAction")->text().contains("(&"));
        const QRegularExpression mnemonic("&|\\(.\\)");
        for (const auto *button : m_window->findChild<QToolBar *>("toolBar")->findChildren<QToolButton *>()) {
            QVERIFY2(!QString(button->text() + button->toolTip()).contains(mnemonic), qPrintable(button->toolTip()));
        }
    }

    void keepsTheStationWhenAFileIsRejected()
    {
        add("Relay");
        QString text;
        answerNext<QMessageBox>([&](QMessageBox *box) {
            text = box->text();
            box->accept();
        });
        QVERIFY(!m_window->openFile("absent.station"));
        QVERIFY2(text.contains("absent.station"), qPrintable(text));
        answerNext<QMessageBox>([](QMessageBox *box) { box->reject(); });
        trigger("newAction");
        QVERIFY(cell({0, 0}).contains("Relay"));
        QVERIFY(m_window->isWindowModified());
    }

    void keepsNamesThatTheLocaleLacks()
    {
        CatalogFolder catalog;
        catalog.writeModule(13650, 8, u8"ObjName=\u00e4\u4e2d\n");
        for (const QStringList &task : {QStringList{"--batch", "--new", "names.station", "--modules", "2"},
                                        {"--batch", "names.station", "--verify"},
                                        {"--table", "names.station"},
                                        {"--batch", "names.station", "--compile", "names.blk"},
                                        {"--batch", "names again.station", "--decompile", "names.blk"}}) {
            QCOMPARE(QProcess::execute("env", QStringList{"LC_ALL=C", WORKBENCH_PROGRAM} + task), 0);
        }
        QCOMPARE(ProjectFile("names again.station").read()->modules[1].name, QStringLiteral(u"\u00e4\u4e2d"));
    }

    void runsWithoutAWindow_data()
    {
        const Rows<QString, int, QString> row("arguments", "exitCode", "output");
        row("table of the sample station", "--table", 0,
            "19 modules, \\d+ bytes compiled; 0 round trips failed\\.\n\\(\\*\\) A double-word.*\n$");
        row("missing library", "--table --library absent.so", 1, "^The plug-in cannot be loaded: .*absent.so");
        row("missing project", "--table absent.station", 1, "^absent.station: No such file or directory\n$");
        row("unknown option", "--unknown --table", 2, "^Unknown option 'unknown'");
        row("task without batch", "--table absent.station --compile x.blk", 2, "^A task needs --batch");
        row("two projects", "--table a.station b.station", 2, "^Expected at most one file");
        row("no file name", "--table ''", 2, "^Expected at most one file");
        row("full disk", "--table >/dev/full", 1, "could not be written");
        row("batch without a task", "--batch", 2, "^--batch needs a project file");
    }
    void runsWithoutAWindow()
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start("sh", {"-c", "'" WORKBENCH_PROGRAM "' " + fetched<QString>("arguments")});
        QVERIFY(process.waitForFinished());
        QTEST(process.exitCode(), "exitCode");
        const QString written = process.readAll();
        QVERIFY2(written.contains(QRegularExpression(fetched<QString>("output"))), qPrintable(written));
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
