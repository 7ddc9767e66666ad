#include "comparedialog.h"

#include "columngap.h"
#include "enterkey.h"
#include "fieldtexts.h"
#include "windowsize.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int placeRole = Qt::UserRole;
constexpr int widestColumn = 40; // characters; a longer title or name would move the other project out of view

QString sideText(const QVector<blockdecoder::Field> &side)
{
    return side.isEmpty() ? CompareDialog::tr("missing") : fieldValueText(side.first());
}

} // namespace

CompareDialog::CompareDialog(const Project &left, const QString &leftName, const Project &right,
                             const QString &rightName, QWidget *parent)
    : QDialog(parent),
      m_differences(compareProjects(left, right)),
      m_leftName(leftName),
      m_rightName(rightName),
      m_list(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("compareDialog"));
    installEventFilter(new EnterKey(this));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Compare: %1, %2").arg(titleText(leftName), titleText(rightName)));
    auto *summary = new QLabel(m_differences.isEmpty() ? tr("The projects have the same content.")
                                                       : tr("%n difference(s)", nullptr, m_differences.size()));
    summary->setObjectName(QStringLiteral("compareSummary"));
    m_list->setObjectName(QStringLiteral("differenceList"));
    m_list->setAccessibleName(tr("Differences"));
    m_list->setHeaderLabels({tr("Place"), tr("Module"), tr("Difference"), leftName, rightName});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setItemDelegate(new ColumnGap(m_list));
    for (const ProjectDifference &difference : qAsConst(m_differences)) {
        addDifference(difference);
    }
    for (int column = 0; column < m_list->columnCount(); ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column,
                               std::min(m_list->columnWidth(column), widestColumn * fontMetrics().averageCharWidth()));
    }
    connect(m_list, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem *item) {
        if (const QVariant place = item->data(0, placeRole); place.isValid()) {
            emit moduleChosen(place.value<Place>());
        }
    });

    auto *buttons = new QDialogButtonBox;
    QPushButton *copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setEnabled(!m_differences.isEmpty());
    copy->setToolTip(tr("Copy the differences as text, one per line"));
    buttons->addButton(tr("C&lose"), QDialogButtonBox::RejectRole);
    connect(copy, &QPushButton::clicked, this, &CompareDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(summary);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    resizeToFit(*this, {fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 32});
}

void CompareDialog::addDifference(const ProjectDifference &difference)
{
    auto *item = new QTreeWidgetItem(m_list);
    if (difference.kind == ProjectDifference::Property) {
        item->setText(0, tr("Project"));
    } else {
        item->setText(0, tr("Rack %1, slot %2").arg(difference.place.rack).arg(difference.place.slot));
        item->setText(1, difference.module);
    }
    item->setText(2, fieldTitle(difference.field));
    item->setToolTip(2, difference.field);
    switch (difference.kind) {
    case ProjectDifference::OnlyLeft:
    case ProjectDifference::OnlyRight: {
        const bool isLeft = difference.kind == ProjectDifference::OnlyLeft;
        item->setText(2, isLeft ? tr("only here") : tr("only in the other project"));
        item->setText(isLeft ? 3 : 4, difference.module);
        break;
    }
    case ProjectDifference::Field:
    case ProjectDifference::Property:
        item->setText(3, sideText(difference.left));
        item->setText(4, sideText(difference.right));
        item->setToolTip(3, item->text(3)); // a long text is elided
        item->setToolTip(4, item->text(4));
        break;
    }
    if (difference.kind == ProjectDifference::Field || difference.kind == ProjectDifference::OnlyLeft) {
        item->setData(0, placeRole, QVariant::fromValue(difference.place));
    }
}

void CompareDialog::copy() const
{
    QString text;
    for (const ProjectDifference &difference : m_differences) {
        text += differenceLine(difference, m_leftName, m_rightName) + QLatin1Char('\n');
    }
    QApplication::clipboard()->setText(text);
}
