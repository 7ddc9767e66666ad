#include "finddialog.h"

#include "columngap.h"
#include "stationsearch.h"
#include "windowsize.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int shownHits = 100;
constexpr int placeRole = Qt::UserRole;

} // namespace

FindDialog::FindDialog(const StationDocument &document, const std::vector<CatalogEntry> &catalog, QWidget *parent)
    : QDialog(parent),
      m_document(document),
      m_catalog(catalog),
      m_query(new QLineEdit(this)),
      m_results(new QTreeWidget(this)),
      m_count(new QLabel(this))
{
    setObjectName(QStringLiteral("findDialog"));
    m_query->setObjectName(QStringLiteral("findQuery"));
    m_query->setClearButtonEnabled(true);
    m_query->installEventFilter(this);
    m_results->setObjectName(QStringLiteral("findResults"));
    m_results->setRootIsDecorated(false);
    m_results->setUniformRowHeights(true);
    m_results->setAlternatingRowColors(true);
    m_results->setColumnCount(3);
    m_results->setItemDelegate(new ColumnGap(m_results));
    m_results->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_results->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_count->setObjectName(QStringLiteral("findCount"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_query);
    layout->addWidget(m_results);
    layout->addWidget(m_count);
    connect(m_query, &QLineEdit::textChanged, this, &FindDialog::search);
    connect(m_query, &QLineEdit::returnPressed, this, &FindDialog::choose);
    connect(m_results, &QTreeWidget::itemActivated, this, &FindDialog::choose);
    retranslate();
    resizeToFit(*this, {fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 20});
}

void FindDialog::start()
{
    search();
    show();
    raise();
    activateWindow();
    m_query->selectAll();
    m_query->setFocus(Qt::ShortcutFocusReason);
}

void FindDialog::search()
{
    const SearchResult found = searchStation(m_document.station(), m_catalog, m_query->text(), shownHits);
    m_results->clear();
    QList<QTreeWidgetItem *> items;
    for (const SearchHit &hit : found.hits) {
        const QString place = tr("Rack %1, slot %2").arg(hit.place.rack).arg(hit.place.slot);
        items += new QTreeWidgetItem({place, hit.module, hit.detail});
        items.last()->setData(0, placeRole, QVariant::fromValue(hit.place));
    }
    m_results->addTopLevelItems(items);
    m_results->setCurrentItem(m_results->topLevelItem(0));
    if (m_query->text().trimmed().isEmpty()) {
        m_count->setText(tr("Type a name, an order number or an address such as I 35.2, AIW40 or QB4."));
    } else if (found.total > found.hits.size()) {
        m_count->setText(tr("%1 modules, the first %2 are shown.").arg(found.total).arg(found.hits.size()));
    } else {
        m_count->setText(found.total == 0 ? tr("No module found.") : tr("%n module(s) found.", nullptr, found.total));
    }
}

void FindDialog::choose()
{
    if (const QTreeWidgetItem *item = m_results->currentItem()) {
        emit moduleChosen(item->data(0, placeRole).value<Place>());
        hide();
    }
}

/// The keys that move in a list move in the results, without leaving the search field.
bool FindDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QApplication::sendEvent(m_results, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void FindDialog::retranslate()
{
    setWindowTitle(tr("Find Module"));
    m_query->setPlaceholderText(tr("Name, order number or address"));
    m_query->setAccessibleName(m_query->placeholderText());
    m_results->setAccessibleName(tr("Modules found"));
    m_results->setHeaderLabels({tr("Place"), tr("Module"), tr("Details")});
    search();
}

void FindDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
}
