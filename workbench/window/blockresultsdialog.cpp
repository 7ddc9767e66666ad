#include "blockresultsdialog.h"

#include "windowsize.h"
#include "wrappedcolumn.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

BlockResultsDialog::BlockResultsDialog(int moduleCount, const std::vector<BlockResult> &results, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("blockResults"));
    setWindowTitle(tr("Decompiled Station"));
    resizeToFit(*this, {760, 320});

    auto *summary = new QLabel(tr("%n module(s) were rebuilt. These blocks have problems:", nullptr, moduleCount));
    auto *list = new QTreeWidget;
    list->setObjectName(QStringLiteral("resultList"));
    list->setAccessibleName(tr("Problems"));
    list->setHeaderLabels({tr("Block"), tr("Offset"), tr("Result code"), tr("Reason")});
    list->setRootIsDecorated(false);
    for (const BlockResult &result : results) {
        const QStringList reasons{result.error, result.unread};
        const QString code = result.code < 0 ? tr("none") : QString::number(result.code);
        auto *item = new QTreeWidgetItem(list, {QString::number(result.number), QString::number(result.offset), code,
                                                reasons.join(QLatin1Char(' ')).trimmed()});
        item->setToolTip(3, item->text(3));
    }
    wrapLastColumn(*list);
    for (int column = 0; column + 1 < list->columnCount(); ++column) {
        list->resizeColumnToContents(column);
    }
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(tr("&Close"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(summary);
    layout->addWidget(list);
    layout->addWidget(buttons);
}
