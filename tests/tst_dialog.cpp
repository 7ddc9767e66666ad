// The properties dialog: its groups, its buttons and the record and memory map after each way to close it.
#include "boxrecorder.h"
#include "catalog.h"
#include "claims.h"
#include "defaultbuilder.h"
#include "modulestate.h"
#include "pagefixture.h"
#include "rows.h"
#include "simpleextendcfgdlg.h"
#include "simulatedhost.h"

#include <cmath>

namespace {

const QString owner = QStringLiteral("plc");
constexpr quint32 mixedAnalog = 0x3459; ///< four inputs, two outputs

/// A dialog with the memory calls of its caller before and after it, of the given module or of a factory module.
class OpenDialog {
public:
    explicit OpenDialog(SimpleExtendPar *par = nullptr, bool locked = false)
        : m_factory(par == nullptr ? buildDefault(mixedAnalog, owner) : nullptr)
    {
        backupUsedMemory(owner);
        m_dialog.reset(new SimpleExtendcfgdlg(par == nullptr ? m_factory.get() : par, owner, nullptr, locked));
    }
    ~OpenDialog() { (m_dialog->result() == QDialog::Accepted ? popBackupMemory : restoreUsedMemory)(owner); }
    Q_DISABLE_COPY_MOVE(OpenDialog)

    SimpleExtendcfgdlg *operator->() { return m_dialog.data(); }
    template <typename Widget>
    Widget *find(const QString &name)
    {
        return child<Widget>(*m_dialog, name);
    }
    void press(const char *button) { find<QPushButton>(button)->click(); }
    [[nodiscard]] bool show()
    {
        m_dialog->show();
        return QTest::qWaitForWindowActive(m_dialog.data());
    }
    QTreeWidget *tree() { return find<QTreeWidget>("tree"); }
    QTreeWidgetItem *root() { return tree()->topLevelItem(0); }
    QTabWidget *shownTab() { return qobject_cast<QTabWidget *>(find<QStackedWidget>("pageStack")->currentWidget()); }
    QString shownFocus()
    {
        return QStringList{shownTab()->currentWidget()->objectName(), tree()->currentItem()->text(0),
                           m_dialog->focusWidget()->objectName()}
            .join(' ');
    }

private:
    std::unique_ptr<SimpleExtendPar> m_factory;
    QScopedPointer<SimpleExtendcfgdlg> m_dialog;
};

} // namespace

class TestDialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { simulatedhost::reset(); }

    void groups_data()
    {
        // areas: of input and output, negative for a range without channels; heading: root item and help keyword
        const Rows<quint32, QPoint, QString, QString> row("code", "areas", "heading", "tabs");
        const QString common = "General,Address";
        const QString inputs = common + ",Input Filter,Range";
        const QString analog = inputs + ",Output Tables,Output Type";
        const QString digital = common + ",Input Filter,Output Tables";
        const QString analogHeading = "Analog Module: Analog Modules Properties";
        const QString digitalHeading = "Digital Module: Digital Modules Properties";
        const QString weighHeading = "Weight Module: Weight Modules Properties";
        row("first analog type", 13395, {6, 7}, analogHeading, analog);
        row("last analog type", 13570, {6, 0}, analogHeading, inputs);
        row("thermocouples", 13396, {6, 0}, "TC: TC/RTD Modules Properties", inputs);
        row("thermometers", 13397, {0, 7}, "RTD: TC/RTD Modules Properties", common + ",Output Tables,Output Type");
        row("first digital type", 13650, {129, 130}, digitalHeading, digital);
        row("last digital type", 13907, {0, 130}, digitalHeading, common + ",Output Tables");
        row("ranges without channels", 13395, {-6, -7}, analogHeading, common);
        row("areas of the other direction", 13395, {7, 6}, analogHeading, common);
        row("weighing type of double words", 14418, {132, 132}, weighHeading, common + ",Weight Param");
        row("second weighing type of double words", 14420, {6, 7}, weighHeading, common + ",Weight Param");
        row("weighing type of words", 14419, {6, 7}, weighHeading, common);
        row("second weighing type of words", 14421, {6, 7}, weighHeading, common);
        row("inputs before outputs", 1, {129, 7}, ": ", common + ",Input Filter,Output Tables,Output Type");
        for (const quint32 code : {13394U, 13571U, 13649U, 13908U, 14417U, 14422U}) {
            row("plain type " + QByteArray::number(code), code, {6, 130}, ": ", inputs + ",Output Tables");
        }
    }
    void groups()
    {
        QFETCH(QPoint, areas);
        const quint8 channels = areas.x() < 0 ? 0 : 1;
        SimpleExtendPar par;
        par.objId = fetched<quint32>("code");
        par.objName = "Rack %1";
        par.inMap = {quint8(qAbs(areas.x())), 0, channels, 1, 2};
        par.outMap = {quint8(qAbs(areas.y())), 0, channels, 1, 2};
        OpenDialog opened(&par);
        QCOMPARE(opened->windowTitle(), QStringLiteral("Properties - Rack %1"));
        QCOMPARE(opened.tree()->topLevelItemCount(), 1);
        const auto *root = opened.root();
        QVERIFY(root->isExpanded());
        QCOMPARE(root->data(0, Qt::UserRole).toInt(), -1);
        QCOMPARE(opened.tree()->currentItem(), root->child(0));

        QStringList tabs;
        for (int i = 0; i < root->childCount(); ++i) {
            opened.tree()->setCurrentItem(root->child(i));
            tabs << opened.shownTab()->tabText(0);
            QCOMPARE(root->child(i)->text(0), tabs.last() == "Range" ? QStringLiteral("Range Config") : tabs.last());
        }
        QTEST(tabs.join(','), "tabs");
        opened.press("helpButton");
        QTEST(QString(root->text(0) + ": " + simulatedhost::lastHelpKeyword()), "heading");
    }

    void frame()
    {
        OpenDialog opened;
        QCOMPARE(opened->windowFlags(), Qt::Window | Qt::WindowCloseButtonHint | Qt::WindowTitleHint |
                                            Qt::WindowSystemMenuHint); // the last two come from Qt
        QCOMPARE(opened->size(), QSize(690, 440));
        QCOMPARE(opened.tree()->iconSize(), QSize(24, 24));
        QCOMPARE(opened.tree()->lineWidth(), 2);
        const auto *general = opened.root()->child(0);
        QVERIFY(!opened->windowIcon().isNull() && !opened.root()->icon(0).isNull() && !general->icon(0).isNull());
        opened.press("helpButton");
        QCOMPARE(general->data(0, Qt::UserRole + 11).toString(), simulatedhost::lastHelpKeyword());
        const auto *stack = opened.find<QStackedWidget>("pageStack");
        QCOMPARE(stack->indexOf(opened.shownTab()), stack->count() - 1); // each page is inserted before the others
        QStringList texts;
        for (const char *button : {"okButton", "cancelButton", "defaultAllButton", "helpButton"}) {
            texts << opened.find<QPushButton>(button)->text();
        }
        QCOMPARE(texts.join('|'), QString("OK|Cancel|Default All|Help"));
    }

    void f1OpensHelp()
    {
        simulatedhost::setLanguage(simulatedhost::Language::Local);
        OpenDialog opened;
        QVERIFY(opened.show());
        for (const char *editor : {"commentEdit", "inputStart", "deadband_1"}) {
            startHelpSys({});
            QTest::keyClick(opened.find<QWidget>(editor), Qt::Key_F1);
            QCOMPARE(simulatedhost::lastHelpKeyword(), QStringLiteral("模拟量模块属性"));
        }
    }

    void lockedDialogOnlyCancels()
    {
        OpenDialog opened(nullptr, true);
        for (const char *button : {"okButton", "cancelButton", "defaultAllButton", "helpButton"}) {
            QCOMPARE(opened.find<QPushButton>(button)->isEnabled(), qstrcmp(button, "okButton") != 0);
        }
    }

    void containsItsImages()
    {
        for (const char *name : {"hwcnfg", "folder", "itemconfig"}) {
            const QString path = QStringLiteral(":/images/%1%2.png").arg(name);
            QCOMPARE(QImage(path.arg("")).size(), QSize(24, 24));
            QCOMPARE(QImage(path.arg("@2x")).size(), QSize(48, 48));
        }
    }

    void defaultAllDoesNotAffectAddresses()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        const QString factoryName = par->objName.left(24);
        par->objName = "mine";
        par->aiFilter[1].samples = 0;
        const QByteArray before = saveModule(*par);
        const QStringList held = claims(owner);
        OpenDialog opened(par.get());
        edit(*opened.operator->(), "inputStart=40 defaultAllButton");
        QCOMPARE(opened.find<QLineEdit>("nameEdit")->text(), factoryName);
        QCOMPARE(opened.find<QComboBox>("samples_1")->currentIndex(), 5);
        QCOMPARE(opened.find<QSpinBox>("inputStart")->value(), 40);
        QCOMPARE(saveModule(*par), before);
        QCOMPARE(claims(owner), held);
        QVERIFY(opened->slot_returnDefaultParam() == opened->slot_returnDefaultParam());
    }

    void defaultAllAffectsTheWeighingPage()
    {
        const auto par = buildDefault(0x3852, owner);
        OpenDialog opened(par.get());
        edit(*opened.operator->(), "filterDepth_0=7 defaultAllButton");
        QCOMPARE(opened.find<QSpinBox>("filterDepth_0")->value(), 15);
    }

    void defaultAllCallsTheHostOncePerPress()
    {
        OpenDialog opened;
        auto *name = opened.find<QLineEdit>("nameEdit");
        name->setText("mine");
        int calls = 0;
        simulatedhost::setFaults([&calls](simulatedhost::HostCall call) {
            calls += call == simulatedhost::HostCall::FindDescriptions ? 1 : 0;
            return true;
        });
        for (const int presses : {1, 2}) {
            opened.press("defaultAllButton");
            QCOMPARE(calls, presses);
        }
        opened.press("defaultsButton");
        QCOMPARE(calls, 3);
        QCOMPARE(name->text(), QStringLiteral("mine"));
        simulatedhost::setFaults({});
        opened.press("defaultAllButton");
        QVERIFY(name->text() != "mine");
    }

    void onlyOkIsTheDefaultButton()
    {
        OpenDialog opened;
        QVERIFY(opened.show());
        for (int i = 0; i < opened.root()->childCount(); ++i) {
            opened.tree()->setCurrentItem(opened.root()->child(i));
            for (auto *button : opened->findChildren<QPushButton *>()) {
                button->setFocus();
                QVERIFY(button->hasFocus() || !button->isVisible());
                for (const auto *each : opened->findChildren<QPushButton *>()) {
                    QCOMPARE(each->isDefault(), each->objectName() == "okButton");
                }
            }
        }
    }

    void returnPressesTheFocusedButtonElseOk()
    {
        for (const char *focus : {"nameEdit", "cancelButton"}) {
            OpenDialog opened;
            QVERIFY(opened.show());
            auto *widget = opened.find<QWidget>(focus);
            widget->setFocus();
            QTest::mouseClick(opened.find<QWidget>("defaultAllButton"), Qt::LeftButton);
            QVERIFY(widget->hasFocus());
            QTest::keyClick(widget, Qt::Key_Return);
            QCOMPARE(opened->result() == QDialog::Accepted, qstrcmp(focus, "nameEdit") == 0);
            QVERIFY(!opened->isVisible());
        }
    }

    void groupsCannotBeCollapsed()
    {
        OpenDialog opened;
        QVERIFY(opened.show());
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Minus, Qt::Key_Up, Qt::Key_Minus, Qt::Key_Left}) {
            QTest::keyClick(opened.tree(), key);
            QVERIFY(opened.root()->isExpanded());
        }
    }

    void everyRefusalIsShownAndTheFirstKeepsTheFocus()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        const auto neighbour = buildDefault(mixedAnalog, owner); // the start is moved to its range
        OpenDialog opened(par.get());
        QVERIFY(opened.show());
        edit(*opened.operator->(), QString("inputStart=%1 deadband_1=20 nameEdit=written").arg(neighbour->inMap.start));
        BoxRecorder boxes;
        QStringList shown;
        boxes.onBox = [&](const QMessageBox &) { shown << opened.shownFocus(); };
        opened.press("okButton");
        const QString address = QStringLiteral("SAddrMapWgt Address inputStart");
        QCOMPARE(shown, QStringList({address, "SAIFilterWgt Input Filter deadband_1"}));
        QCOMPARE(boxes.texts.filter(", " + opened->windowTitle() + ": ").size(), shown.size());
        QVERIFY(opened->isVisible());
        QCOMPARE(opened.shownFocus(), address);
        QCOMPARE(opened.find<QSpinBox>("inputStart")->findChild<QLineEdit *>()->selectedText(),
                 QString::number(neighbour->inMap.start));
        QCOMPARE(par->objName, QStringLiteral("written"));
    }

    void uneditedModulesStayUnchanged()
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        QCOMPARE(catalog.size(), std::size_t{19});
        for (const CatalogEntry &entry : catalog) {
            const auto par = buildDefault(entry.typeCode, owner);
            if (par->diCount % 8 == 4) { // the filter page clears the half of the last byte without a row
                par->diFilter.back() = char(par->diFilter.back() & 0x0F);
            }
            const QByteArray before = saveModule(*par);
            const QStringList held = claims(owner);
            OpenDialog(par.get()).press("okButton");
            QCOMPARE(saveModule(*par), before);
            {
                OpenDialog opened(par.get());
                opened.find<QLineEdit>("nameEdit")->setText("other");
                opened.find<QSpinBox>("inputStart")->stepUp();
                opened.press("defaultAllButton");
                opened.press("cancelButton");
            }
            QCOMPARE(saveModule(*par), before);
            QCOMPARE(claims(owner), held);
        }
    }

    // Every sequence of moves that succeed and moves that the host refuses, each with a refusal of another page, before
    // every way to close the dialog.
    void startsAgreeWithTheMap_data()
    {
        const Rows<QString, int> row("close", "steps");
        row("OK accepts the last move", "ok", 3);
        row("Cancel", "cancel", 3);
        row("the window is closed", "window", 1);
        row("Escape", "escape", 1);
    }
    void startsAgreeWithTheMap()
    {
        QFETCH(QString, close);
        QFETCH(int, steps);
        constexpr int taken = 100;
        const QVector<QPoint> moves = {{20, 0}, {40, 0}, {0, 30}, {taken, 30}, {60, taken}};
        const int walks = int(std::pow(moves.size(), steps));
        BoxRecorder boxes;
        for (int walk = 0; walk < walks; ++walk) {
            simulatedhost::resetBase();
            SimpleExtendPar par; // with few editors, because this test opens hundreds of dialogs
            par.memoryOwner = owner;
            par.inMap = {quint8(VarArea::AnalogInput), 0, 4, 1, 2};
            par.outMap = {quint8(VarArea::Variable), 0, 2, 1, 2};
            par.aiCount = 1;
            for (const int start : {0, taken}) {
                getMemory(owner, VarArea::AnalogInput, start, 8);
                getMemory(owner, VarArea::Variable, start, 4);
            }
            {
                OpenDialog opened(&par);
                const QString edits = "inputStart=%1 outputStart=%2 deadband_0=%3 okButton";
                for (int step = 0, rest = walk; step < steps; ++step, rest /= moves.size()) {
                    const QPoint &starts = moves[rest % moves.size()];
                    edit(*opened.operator->(), edits.arg(starts.x()).arg(starts.y()).arg(20));
                }
                if (close == "ok") {
                    edit(*opened.operator->(), edits.arg(80).arg(0).arg(0));
                } else if (close == "cancel") {
                    opened.press("cancelButton");
                } else {
                    QVERIFY(opened.show());
                    close == "window" ? void(opened->close()) : QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
                }
                QCOMPARE(opened->result() == QDialog::Accepted, close == "ok");
            }
            QStringList expected{claimText(6, par.inMap.start, 8), claimText(6, taken, 8),
                                 claimText(132, par.outMap.start, 4), claimText(132, taken, 4)};
            expected.sort();
            const QString name = QStringLiteral("Walk %1: ").arg(walk);
            QCOMPARE(QString(name + claims(owner).join(' ')), QString(name + expected.join(' ')));
        }
    }

    // The caller rolls back the map of the station that it passes, which may differ from the module's.
    void rangesInTheMapOfAnotherStationStay()
    {
        const auto par = buildDefault(mixedAnalog, QStringLiteral("other"));
        SimpleExtendcfgdlg dialog(par.get(), owner, nullptr, false);
        BoxRecorder boxes;
        edit(dialog, "inputStart=40 deadband_0=20 okButton");
        dialog.reject();
        QCOMPARE(simulatedhost::claimedRanges("other").first().start, int(par->inMap.start));
    }
};

QTEST_MAIN(TestDialog)
#include "tst_dialog.moc"
