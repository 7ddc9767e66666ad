#include "catalogview.h"

#include "modulecolors.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int typeCodeRole = Qt::UserRole;
constexpr int familyRole = Qt::UserRole + 1;
constexpr int iconSize = 12;
constexpr int widestCharacters = 64; // of the minimum width, because the name in a description file can be long

class CatalogTree : public QTreeWidget {
public:
    using QTreeWidget::QTreeWidget;

protected:
    QStringList mimeTypes() const override { return {CatalogView::mimeType()}; }

    QMimeData *mimeData(const QList<QTreeWidgetItem *> items) const override
    {
        auto *carried = new QMimeData;
        carried->setData(CatalogView::mimeType(), items.first()->data(0, typeCodeRole).toByteArray());
        return carried;
    }
};

QIcon familyIcon(CatalogFamily family, const QPalette &palette)
{
    QPixmap pixmap(iconSize, iconSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette.color(QPalette::Text));
    painter.setBrush(moduleColor(family, {}, palette));
    painter.drawRoundedRect(1, 1, iconSize - 3, iconSize - 3, 2, 2);
    return {pixmap};
}

} // namespace

CatalogView::CatalogView(const std::vector<CatalogEntry> &catalog, QWidget *parent)
    : QWidget(parent), m_catalog(catalog), m_search(new QLineEdit(this)), m_tree(new CatalogTree(this))
{
    m_search->setObjectName(QStringLiteral("catalogSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &CatalogView::filter);
    connect(m_search, &QLineEdit::returnPressed, this, &CatalogView::requestPlace);

    m_tree->setObjectName(QStringLiteral("catalogTree"));
    m_tree->setColumnCount(2);
    m_tree->setDragEnabled(true);
    m_tree->setDragDropMode(QAbstractItemView::DragOnly);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(m_tree, &QTreeWidget::itemActivated, this, &CatalogView::requestPlace);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &CatalogView::currentTypeChanged);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_tree);
    fill();
    retranslate();
    const QAbstractItemView &columns = *m_tree;
    const int orderNumberWidth = std::max(columns.sizeHintForColumn(1), m_tree->header()->sectionSizeHint(1));
    const int contents = columns.sizeHintForColumn(0) + orderNumberWidth + 2 * m_tree->frameWidth();
    m_tree->setMinimumWidth(std::min(contents, widestCharacters * fontMetrics().averageCharWidth()));
}

void CatalogView::fill()
{
    for (const CatalogFamily family : {CatalogFamily::Analog, CatalogFamily::Temperature, CatalogFamily::Digital,
                                       CatalogFamily::Weighing, CatalogFamily::Other}) {
        auto *group = new QTreeWidgetItem;
        group->setData(0, familyRole, static_cast<int>(family));
        group->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        for (const CatalogEntry &entry : m_catalog) {
            if (entry.family != family) {
                continue;
            }
            auto *item = new QTreeWidgetItem(group, {entry.name, entry.orderNumber});
            item->setData(0, typeCodeRole, entry.typeCode);
        }
        if (group->childCount() == 0) {
            delete group;
            continue;
        }
        m_tree->addTopLevelItem(group);
        group->setExpanded(true);
        group->setFirstColumnSpanned(true);
    }
    if (m_tree->topLevelItemCount() != 0) {
        m_tree->setCurrentItem(m_tree->topLevelItem(0)->child(0));
    }
}

std::optional<quint32> CatalogView::currentType() const
{
    const QTreeWidgetItem *item = m_tree->currentItem();
    if (item == nullptr || item->parent() == nullptr || item->isHidden()) {
        return std::nullopt;
    }
    return item->data(0, typeCodeRole).toUInt();
}

/// Shows the types whose name or order number contains every word of @p text, and makes the first one current.
void CatalogView::filter(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QTreeWidgetItem *first = nullptr;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *group = m_tree->topLevelItem(i);
        bool isEmpty = true;
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem *item = group->child(j);
            const QString searched = item->text(0) + QLatin1Char(' ') + item->text(1);
            const bool hidden = !std::all_of(words.begin(), words.end(), [&](const QString &word) {
                return searched.contains(word, Qt::CaseInsensitive);
            });
            item->setHidden(hidden);
            isEmpty = isEmpty && hidden;
            first = first == nullptr && !hidden ? item : first;
        }
        group->setHidden(isEmpty);
    }
    if (first != nullptr && !currentType()) {
        m_tree->setCurrentItem(first);
    }
    emit currentTypeChanged();
}

void CatalogView::requestPlace()
{
    if (const std::optional<quint32> type = currentType()) {
        emit placeRequested(*type);
    }
}

/// The down key moves the focus from the search field to the tree.
bool CatalogView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down) {
        m_tree->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CatalogView::retranslate()
{
    m_search->setPlaceholderText(tr("Search by name or order number"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_tree->setAccessibleName(tr("Catalog"));
    m_tree->setHeaderLabels({tr("Module"), tr("Order number")});
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *group = m_tree->topLevelItem(i);
        const auto family = static_cast<CatalogFamily>(group->data(0, familyRole).toInt());
        group->setText(0, familyName(family));
        group->setIcon(0, familyIcon(family, palette()));
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem *item = group->child(j);
            const quint32 typeCode = item->data(0, typeCodeRole).toUInt();
            const QString problem = catalogProblem(typeCode);
            item->setIcon(1, problem.isEmpty() ? QIcon() : style()->standardIcon(QStyle::SP_MessageBoxWarning));
            const QString tip =
                problem.isEmpty() ? tr("Type %1. Double-click it or drag it to place it.").arg(typeCode) : problem;
            item->setToolTip(0, tip);
            item->setToolTip(1, tip);
        }
    }
}

void CatalogView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange) {
        retranslate();
    }
}
