// The properties dialog: its groups, the ways out of it and what they leave behind.
#include "boxrecorder.h"
#include "catalog.h"
#include "claims.h"
#include "defaultbuilder.h"
#include "modulestate.h"
#include "pagefixture.h"
#include "rows.h"
#include "simpleextendcfgdlg.h"
#include "simulatedhost.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>

#include <cmath>

namespace {

const QString owner = QStringLiteral("plc");
constexpr quint32 mixedAnalog = 0x3459; // four inputs, two outputs

/// A dialog between the memory calls that its caller makes before and after it.
class OpenDialog {
public:
    explicit OpenDialog(SimpleExtendPar *par, bool locked = false)
    {
        backupUsedMemory(owner);
        m_dialog.reset(new SimpleExtendcfgdlg(par, owner, nullptr, locked));
    }
    ~OpenDialog()
    {
        if (m_dialog->result() == QDialog::Accepted) {
            popBackupMemory(owner);
        } else {
            restoreUsedMemory(owner);
        }
    }
    Q_DISABLE_COPY_MOVE(OpenDialog)

    SimpleExtendcfgdlg *operator->() { return m_dialog.data(); }
    template <class Widget>
    Widget *find(const char *name)
    {
        return child<Widget>(*m_dialog, name);
    }
    void press(const char *button) { find<QPushButton>(button)->click(); }
    void show()
    {
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.data()));
    }
    QString shownPage()
    {
        const auto *tab = qobject_cast<QTabWidget *>(find<QStackedWidget>("pageStack")->currentWidget());
        return tab->currentWidget()->objectName() + ' ' + find<QTreeWidget>("tree")->currentItem()->text(0);
    }

private:
    QScopedPointer<SimpleExtendcfgdlg> m_dialog;
};

/// Gives every editor of the dialog some value that it allows.
void changeEverything(OpenDialog &opened, QRandomGenerator &random)
{
    for (QWidget *editor : opened->findChildren<QWidget *>(QRegularExpression("^(?!qt_)"))) {
        if (!editor->isEnabledTo(opened.operator->())) {
            continue;
        }
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            combo->setCurrentIndex(random.bounded(combo->count()));
        } else if (auto *box = qobject_cast<QCheckBox *>(editor)) {
            box->setChecked(random.bounded(2) == 1);
        } else if (auto *spinBox = qobject_cast<QSpinBox *>(editor)) {
            const int steps = (spinBox->maximum() - spinBox->minimum()) / spinBox->singleStep();
            spinBox->setValue(spinBox->minimum() + random.bounded(steps + 1) * spinBox->singleStep());
        } else if (auto *numberBox = qobject_cast<QDoubleSpinBox *>(editor)) {
            numberBox->setValue(random.bounded(numberBox->maximum()));
        } else if (auto *text = qobject_cast<QLineEdit *>(editor); text != nullptr && !text->isReadOnly()) {
            text->setText(QString::number(random.bounded(-32000, 32001)));
        } else if (auto *comment = qobject_cast<QTextEdit *>(editor)) {
            comment->setPlainText(QString::number(random.generate()));
        }
    }
}

} // namespace

class TestDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules("default.debug=false"); }
    void cleanup() { simulatedhost::reset(); }

    void groups_data()
    {
        // areas: of input and output, without channels below 0; heading: root item, help keyword
        const Rows<quint32, QPoint, QString, QString> row("code", "areas", "heading", "tabs");
        const QString common = "General,Address";
        const QString inputs = common + ",Input Filter,Range";
        const QString analog = inputs + ",Output Tables,Output Type";
        const QString digital = common + ",Input Filter,Output Tables";
        const QString analogHeading = "Analog Module: Analog Modules Properties";
        const QString digitalHeading = "Digital Module: Digital Modules Properties";
        const QString weighHeading = "Weight Module: Weight Modules Properties";
        row("first analog", 13395, {6, 7}, analogHeading, analog);
        row("last analog", 13570, {6, 0}, analogHeading, inputs);
        row("thermocouples", 13396, {6, 0}, "TC: TC/RTD Modules Properties", inputs);
        row("thermometers", 13397, {0, 7}, "RTD: TC/RTD Modules Properties", common + ",Output Tables,Output Type");
        row("first digital", 13650, {129, 130}, digitalHeading, digital);
        row("last digital", 13907, {0, 130}, digitalHeading, common + ",Output Tables");
        row("no channels", 13395, {-6, -7}, analogHeading, common);
        row("areas of another direction", 13395, {7, 6}, analogHeading, common);
        row("weighing, double words", 14418, {132, 132}, weighHeading, common + ",Weight Param");
        row("weighing, double words, later", 14420, {6, 7}, weighHeading, common + ",Weight Param");
        row("weighing, words", 14419, {6, 7}, weighHeading, common);
        row("weighing, words, later", 14421, {6, 7}, weighHeading, common);
        for (const quint32 code : {13394U, 13571U, 13649U, 13908U, 14417U, 14422U}) {
            row("plain " + QByteArray::number(code), code, {6, 130}, ": ", inputs + ",Output Tables");
        }
    }
    void groups()
    {
        QFETCH(quint32, code);
        QFETCH(QPoint, areas);
        const quint8 channels = areas.x() < 0 ? 0 : 1;
        SimpleExtendPar par;
        par.objId = code;
        par.objName = "Rack %1";
        par.inMap = {quint8(qAbs(areas.x())), 0, channels, 1, 2};
        par.outMap = {quint8(qAbs(areas.y())), 0, channels, 1, 2};
        OpenDialog opened(&par);
        QCOMPARE(opened->windowTitle(), QStringLiteral("Properties - Rack %1"));
        const auto *tree = opened.find<QTreeWidget>("tree");
        QCOMPARE(tree->topLevelItemCount(), 1);
        const auto *root = tree->topLevelItem(0);
        QVERIFY(root->isExpanded());
        QCOMPARE(root->data(0, Qt::UserRole).toInt(), -1);
        QCOMPARE(tree->currentItem(), root->child(0));

        QStringList tabs;
        for (int i = 0; i < root->childCount(); ++i) {
            opened.find<QTreeWidget>("tree")->setCurrentItem(root->child(i));
            const auto *tab = qobject_cast<QTabWidget *>(opened.find<QStackedWidget>("pageStack")->currentWidget());
            tabs << tab->tabText(0);
            QCOMPARE(root->child(i)->text(0), tabs.last() == "Range" ? QStringLiteral("Range Config") : tabs.last());
        }
        QTEST(tabs.join(','), "tabs");
        opened.press("helpButton");
        QTEST(QString(root->text(0) + ": " + simulatedhost::lastHelpKeyword()), "heading");
    }

    void f1OpensHelp()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        simulatedhost::setLanguage(simulatedhost::Language::Local);
        OpenDialog opened(par.get());
        opened.show();
        for (const char *editor : {"commentEdit", "inputStart", "deadband_1"}) {
            startHelpSys({});
            QTest::keyClick(opened.find<QWidget>(editor), Qt::Key_F1);
            QCOMPARE(simulatedhost::lastHelpKeyword(), QStringLiteral("模拟量模块属性"));
        }
    }

    void lockedDialogOnlyCancels()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        OpenDialog opened(par.get(), true);
        for (const char *button : {"okButton", "cancelButton", "defaultAllButton", "helpButton"}) {
            QCOMPARE(opened.find<QPushButton>(button)->isEnabled(), qstrcmp(button, "okButton") != 0);
        }
    }

    void imagesComeAlong()
    {
        for (const char *name : {"hwcnfg", "folder", "itemconfig"}) {
            const QString path = QStringLiteral(":/images/%1%2.png").arg(name);
            QCOMPARE(QImage(path.arg("")).size(), QSize(24, 24));
            QCOMPARE(QImage(path.arg("@2x")).size(), QSize(48, 48));
        }
    }

    void defaultAllSparesAddresses()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        const QString factoryName = par->objName.left(24);
        par->objName = "mine";
        par->aiFilter[1].samples = 0;
        const QByteArray before = saveModule(*par);
        const QStringList held = claims(owner);
        OpenDialog opened(par.get());
        opened.find<QSpinBox>("inputStart")->setValue(40);
        opened.press("defaultAllButton");
        QCOMPARE(opened.find<QLineEdit>("nameEdit")->text(), factoryName);
        QCOMPARE(opened.find<QComboBox>("samples_1")->currentIndex(), 5);
        QCOMPARE(opened.find<QSpinBox>("inputStart")->value(), 40);
        QCOMPARE(saveModule(*par), before);
        QCOMPARE(claims(owner), held);
        QVERIFY(opened->slot_returnDefaultParam() == opened->slot_returnDefaultParam());
    }

    void defaultAllAsksTheHostOncePerPress()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        OpenDialog opened(par.get());
        auto *name = opened.find<QLineEdit>("nameEdit");
        name->setText("mine");
        int asked = 0;
        simulatedhost::setFaults([&asked](simulatedhost::HostCall call) {
            asked += call == simulatedhost::HostCall::FindDescriptions ? 1 : 0;
            return true;
        });
        for (const int presses : {1, 2}) {
            opened.press("defaultAllButton");
            QCOMPARE(asked, presses);
        }
        opened.press("defaultsButton");
        QCOMPARE(asked, 3);
        QCOMPARE(name->text(), QStringLiteral("mine"));
        simulatedhost::setFaults({});
        opened.press("defaultAllButton");
        QVERIFY(name->text() != "mine");
    }

    void onlyOkIsTheDefaultButton()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        OpenDialog opened(par.get());
        opened.show();
        auto *tree = opened.find<QTreeWidget>("tree");
        int focused = 0;
        for (int i = 0; i < tree->topLevelItem(0)->childCount(); ++i) {
            tree->setCurrentItem(tree->topLevelItem(0)->child(i));
            for (auto *button : opened->findChildren<QPushButton *>()) {
                button->setFocus();
                focused += button->hasFocus() ? 1 : 0;
                for (const auto *each : opened->findChildren<QPushButton *>()) {
                    QCOMPARE(each->isDefault(), each->objectName() == "okButton");
                }
            }
        }
        QVERIFY(focused > 24); // the dialog's four on each of six pages, and those of the pages
        for (const auto &[focus, result] :
             {std::pair{"nameEdit", QDialog::Accepted}, {"cancelButton", QDialog::Rejected}}) {
            OpenDialog other(par.get());
            other.show();
            auto *widget = other.find<QWidget>(focus);
            widget->setFocus();
            QTest::mouseClick(other.find<QWidget>("defaultAllButton"), Qt::LeftButton);
            QVERIFY(widget->hasFocus());
            QTest::keyClick(widget, Qt::Key_Return);
            QCOMPARE(other->result(), int(result));
            QVERIFY(!other->isVisible());
        }
    }

    void groupsCannotBeFolded()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        OpenDialog opened(par.get());
        opened.show();
        auto *tree = opened.find<QTreeWidget>("tree");
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Minus, Qt::Key_Up, Qt::Key_Minus, Qt::Key_Left}) {
            QTest::keyClick(tree, key);
            QVERIFY(tree->topLevelItem(0)->isExpanded());
        }
    }

    void everyRefusalIsShownAndTheFirstStays()
    {
        const auto par = buildDefault(mixedAnalog, owner);
        const auto neighbour = buildDefault(mixedAnalog, owner); // what the start is moved onto
        OpenDialog opened(par.get());
        opened.show();
        opened.find<QSpinBox>("inputStart")->setValue(neighbour->inMap.start);
        opened.find<QSpinBox>("deadband_1")->setValue(20);
        opened.find<QLineEdit>("nameEdit")->setText("written all the same");
        BoxRecorder boxes;
        QStringList shown;
        boxes.onBox = [&](const QMessageBox &) {
            shown << opened.shownPage() + ' ' + opened->focusWidget()->objectName();
        };
        opened.press("okButton");
        const QString address = QStringLiteral("SAddrMapWgt Address inputStart");
        QCOMPARE(shown, QStringList({address, "SAIFilterWgt Input Filter deadband_1"}));
        QCOMPARE(boxes.told.filter(", " + opened->windowTitle() + ": ").size(), shown.size());
        QVERIFY(opened->isVisible());
        QCOMPARE(opened.shownPage() + ' ' + opened->focusWidget()->objectName(), address);
        QCOMPARE(opened.find<QSpinBox>("inputStart")->findChild<QLineEdit *>()->selectedText(),
                 QString::number(neighbour->inMap.start));
        QCOMPARE(par->objName, QStringLiteral("written all the same"));
    }

    void nothingChangesUnedited()
    {
        const std::vector<CatalogEntry> catalog = readCatalog();
        QCOMPARE(catalog.size(), std::size_t{19});
        for (const CatalogEntry &entry : catalog) {
            const auto par = buildDefault(entry.typeCode, owner);
            if (par->diCount % 8 == 4) { // the filter page empties the half of the last byte that has no row
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

    void acceptedEditsAreShownAgain()
    {
        BoxRecorder boxes; // some edits break a rule
        for (const CatalogEntry &entry : readCatalog()) {
            int accepted = 0;
            for (quint32 seed = 0; accepted < 3; ++seed) {
                QVERIFY2(seed < 500, qPrintable(QStringLiteral("Module %1 accepts nothing").arg(entry.typeCode)));
                simulatedhost::resetBase();
                const auto par = buildDefault(entry.typeCode, owner);
                QRandomGenerator random(seed);
                OpenDialog edited(par.get());
                changeEverything(edited, random);
                edited.press("okButton");
                if (edited->result() != QDialog::Accepted) {
                    continue;
                }
                ++accepted;
                const QByteArray after = saveModule(*par);
                OpenDialog(par.get()).press("okButton");
                QVERIFY2(saveModule(*par) == after,
                         qPrintable(QStringLiteral("Module %1 %2").arg(entry.typeCode).arg(seed)));
            }
        }
    }

    // Moves that succeed, that the host refuses and that another page's refusal leaves half done, in every order,
    // before every way out.
    void startsAgreeWithTheMap_data()
    {
        const Rows<QString, int> row("wayOut", "steps");
        row("accepted in the end", "ok", 3);
        row("cancelled", "cancel", 3);
        row("closed", "close", 1);
        row("escaped", "escape", 1);
    }
    void startsAgreeWithTheMap()
    {
        QFETCH(QString, wayOut);
        QFETCH(int, steps);
        constexpr int taken = 100;
        const QVector<QPoint> moves = {{20, 0}, {40, 0}, {0, 30}, {taken, 30}, {60, taken}};
        const int walks = int(std::pow(moves.size(), steps));
        BoxRecorder boxes;
        for (int walk = 0; walk < walks; ++walk) {
            simulatedhost::resetBase();
            const auto par = buildDefault(mixedAnalog, owner);
            getMemory(owner, VarArea::AnalogInput, taken, 8);
            getMemory(owner, VarArea::AnalogOutput, taken, 4);
            {
                OpenDialog opened(par.get());
                const auto pressOk = [&opened](const QPoint &starts, int deadband) {
                    opened.find<QSpinBox>("inputStart")->setValue(starts.x());
                    opened.find<QSpinBox>("outputStart")->setValue(starts.y());
                    opened.find<QSpinBox>("deadband_0")->setValue(deadband);
                    opened.press("okButton");
                };
                for (int step = 0, rest = walk; step < steps; ++step, rest /= moves.size()) {
                    pressOk(moves[rest % moves.size()], 20);
                }
                if (wayOut == "ok") {
                    pressOk({80, 0}, 0);
                } else if (wayOut == "cancel") {
                    opened.press("cancelButton");
                } else {
                    opened.show();
                    wayOut == "close" ? void(opened->close()) : QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
                }
                QCOMPARE(opened->result() == QDialog::Accepted, wayOut == "ok");
            }
            QStringList expected{claimText(6, par->inMap.start, 8), claimText(6, taken, 8),
                                 claimText(7, par->outMap.start, 4), claimText(7, taken, 4)};
            expected.sort();
            QVERIFY2(claims(owner) == expected,
                     qPrintable(QStringLiteral("Walk %1: the host holds %2, the record says %3")
                                    .arg(walk)
                                    .arg(claims(owner).join(' '), expected.join(' '))));
        }
    }

    // The caller rolls back the map of the station that it names, which need not be the module's.
    void anotherStationsMapIsLeftAlone()
    {
        const auto par = buildDefault(mixedAnalog, QStringLiteral("other"));
        SimpleExtendcfgdlg dialog(par.get(), owner, nullptr, false);
        dialog.findChild<QSpinBox *>("inputStart")->setValue(40);
        dialog.findChild<QSpinBox *>("deadband_0")->setValue(20);
        BoxRecorder boxes;
        dialog.slot_bttnOK();
        dialog.reject();
        QCOMPARE(simulatedhost::claimedRanges("other").first().start, int(par->inMap.start));
    }
};

QTEST_MAIN(TestDialog)
#include "tst_dialog.moc"
