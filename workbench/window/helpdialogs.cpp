#include "helpdialogs.h"

#include "actiontexts.h"
#include "windowsize.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(HelpDialogs)
};

void addActions(QTreeWidgetItem &group, const QMenu &menu)
{
    for (const QAction *action : menu.actions()) {
        if (action->menu() != nullptr) {
            addActions(group, *action->menu());
        } else if (!action->shortcut().isEmpty()) {
            group.addChild(new QTreeWidgetItem({plainText(*action), shortcutsText(*action)}));
        }
    }
}

QTreeWidgetItem *group(QTreeWidget &list, const QString &title)
{
    auto *item = new QTreeWidgetItem(&list, {title});
    QFont bold = list.font();
    bold.setBold(true);
    item->setFont(0, bold);
    item->setFirstColumnSpanned(true);
    return item;
}

void addKeys(QTreeWidget &list, const QString &title, const QVector<QPair<QString, QString>> &keys)
{
    QTreeWidgetItem *parent = group(list, title);
    for (const auto &[effect, key] : keys) {
        parent->addChild(new QTreeWidgetItem({effect, key}));
    }
}

} // namespace

void showShortcuts(const QMenuBar &menus, QWidget *parent)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("shortcutsDialog"));
    dialog.setWindowTitle(Texts::tr("Shortcuts"));
    auto *list = new QTreeWidget;
    list->setObjectName(QStringLiteral("shortcutList"));
    list->setAccessibleName(Texts::tr("Shortcuts"));
    list->setHeaderLabels({Texts::tr("Command"), Texts::tr("Keys")});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    for (const QAction *action : menus.actions()) {
        QTreeWidgetItem *menu = group(*list, plainText(*action));
        addActions(*menu, *action->menu());
    }
    addKeys(*list, Texts::tr("Racks"),
            {{Texts::tr("Move the selection"), Texts::tr("Arrow keys")},
             {Texts::tr("Select all modules"), QStringLiteral("Ctrl+A")},
             {Texts::tr("Move the module to the next free slot"), Texts::tr("Ctrl+Arrow keys")},
             {Texts::tr("Card size"), Texts::tr("Ctrl+Mouse wheel")}});
    addKeys(*list, Texts::tr("Properties of a module"),
            {{Texts::tr("Apply to All Channels"), QStringLiteral("Ctrl+Shift+D")},
             {Texts::tr("Fill Down"), QStringLiteral("Ctrl+D")},
             {Texts::tr("Reset to Default"), QStringLiteral("Ctrl+R")},
             {Texts::tr("Go to the previous or next channel"), QStringLiteral("Ctrl+Up, Ctrl+Down")},
             {Texts::tr("Go to the first or last channel"), QStringLiteral("Ctrl+Home, Ctrl+End")}});
    list->expandAll();
    list->resizeColumnToContents(0);
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(Texts::tr("C&lose"), QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    resizeToFit(dialog, {dialog.fontMetrics().averageCharWidth() * 80, dialog.fontMetrics().height() * 34});
    dialog.exec();
}

void showAbout(const QString &plugin, QWidget *parent)
{
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("aboutBox"));
    box.setWindowTitle(Texts::tr("About Module Workbench"));
    box.setText(Texts::tr("Module Workbench %1").arg(QCoreApplication::applicationVersion()));
    box.setInformativeText(
        Texts::tr("Plug-in: %1\nHost libraries: basemodule and helpsharemodule, simulated\n"
                  "Qt %2, compiled with Qt %3\nProject files: SQLite, through Qt")
            .arg(QDir::toNativeSeparators(plugin), QLatin1String(qVersion()), QStringLiteral(QT_VERSION_STR)));
    box.addButton(Texts::tr("C&lose"), QMessageBox::AcceptRole);
    box.exec();
}
