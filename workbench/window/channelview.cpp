#include "channelview.h"

#include "channelmodel.h"
#include "channelselection.h"
#include "filequestions.h"
#include "files.h"
#include "reporttexts.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int measuredRows = 200; // for the widths of the columns

/// Paints settings with the changed values in bold, and first, because the end of a long text is elided.
class SettingsPainter : public QStyledItemDelegate {
public:
    SettingsPainter(const ChannelModel &model, const ChannelFilter &filter, QObject *parent)
        : QStyledItemDelegate(parent), m_model(model), m_filter(filter)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem background = option;
        initStyleOption(&background, index);
        background.text.clear();
        const QStyle *style = option.widget == nullptr ? QApplication::style() : option.widget->style();
        style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        painter->save();
        painter->setClipRect(option.rect);
        painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        QRect rest = option.rect.adjusted(style->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1, 0, 0, 0);
        QVector<ChannelSetting> settings = m_model.parameters(m_filter.mapToSource(index).row()).settings;
        std::stable_partition(settings.begin(), settings.end(),
                              [](const ChannelSetting &setting) { return setting.isChanged; });
        for (int i = 0; i < settings.size() && rest.width() > 0; ++i) {
            const bool isLast = i + 1 == settings.size();
            write(*painter, option.font, false, settings.at(i).title + QStringLiteral(": "), false, rest);
            write(*painter, option.font, settings.at(i).isChanged, settings.at(i).text, isLast, rest);
            write(*painter, option.font, false, isLast ? QString() : QStringLiteral(",  "), isLast, rest);
        }
        painter->restore();
    }

private:
    /// Reduces @p rest by the text. A text that is not the last one leaves room for the dots of an elided text, because
    /// a title without a value and without dots looks complete.
    static void write(QPainter &painter, QFont font, bool isBold, const QString &text, bool isLast, QRect &rest)
    {
        const QString dots(QChar(0x2026));
        font.setBold(isBold);
        painter.setFont(font);
        const QFontMetrics metrics = painter.fontMetrics();
        const int advance = metrics.horizontalAdvance(text);
        const bool fits = advance + (isLast ? 0 : metrics.horizontalAdvance(dots)) <= rest.width();
        painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(fits ? text : text + dots, Qt::ElideRight, rest.width()));
        rest.setLeft(fits ? rest.left() + advance : rest.right() + 1);
    }

    const ChannelModel &m_model;
    const ChannelFilter &m_filter;
};

} // namespace

ChannelView::ChannelView(QWidget *parent)
    : QWidget(parent),
      m_model(new ChannelModel(this)),
      m_filter(new ChannelFilter(*m_model, this)),
      m_search(new QLineEdit(this)),
      m_changedOnly(new QCheckBox(this)),
      m_count(new QLabel(this)),
      m_table(new QTableView(this)),
      m_copy(new QAction(this)),
      m_save(new QAction(this))
{
    setObjectName(QStringLiteral("channelView"));
    m_search->setObjectName(QStringLiteral("channelSearch"));
    m_search->setClearButtonEnabled(true);
    m_changedOnly->setObjectName(QStringLiteral("changedOnlyCheck"));
    m_count->setObjectName(QStringLiteral("channelCount"));
    m_table->setObjectName(QStringLiteral("channelTable"));
    m_table->setModel(m_filter);
    m_selection = new ChannelSelection(*m_table, *m_model, *m_filter);
    m_table->setItemDelegateForColumn(ChannelModel::Settings, new SettingsPainter(*m_model, *m_filter, this));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setHighlightSections(false);              // bold means changed
    m_table->horizontalHeader()->setStretchLastSection(true);              // a tool tip has the whole text
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder); // the order of the station
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(-1, Qt::AscendingOrder);

    auto *line = new QHBoxLayout;
    line->addWidget(m_search, 1);
    line->addWidget(m_changedOnly);
    line->addWidget(m_count);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(line);
    layout->addWidget(m_table);

    connect(m_search, &QLineEdit::textChanged, m_filter, &ChannelFilter::setText);
    connect(m_changedOnly, &QCheckBox::toggled, m_filter, &ChannelFilter::setChangedOnly);
    connect(m_table, &QTableView::activated, this, [this](const QModelIndex &index) {
        emit propertiesRequested(m_model->channel(m_filter->mapToSource(index).row()).place);
    });
    for (const QAbstractItemModel *model : std::initializer_list<QAbstractItemModel *>{m_model, m_filter}) {
        connect(model, &QAbstractItemModel::rowsInserted, this, &ChannelView::updateCount);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &ChannelView::updateCount);
        connect(model, &QAbstractItemModel::modelReset, this, &ChannelView::updateCount);
    }
    addActions();
    retranslate();
}

void ChannelView::addActions()
{
    m_copy->setObjectName(QStringLiteral("copyChannelsAction"));
    m_copy->setShortcut(QKeySequence(QStringLiteral("Ctrl+C")));
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    m_save->setObjectName(QStringLiteral("saveChannelsAction"));
    m_table->addAction(m_copy);
    m_table->addAction(m_save);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_copy, &QAction::triggered, this, &ChannelView::copy);
    connect(m_save, &QAction::triggered, this, &ChannelView::saveCsv);
}

void ChannelView::setStation(const Station *station)
{
    m_station = station;
    m_selection->begin(station);
    m_model->setStation(m_isActive ? station : nullptr);
}

void ChannelView::setActive(bool isActive)
{
    m_isActive = isActive;
    m_model->setStation(isActive ? m_station : nullptr);
    fitColumns();
}

/// The first rows show how wide the columns must be; measuring all would take long.
void ChannelView::fitColumns()
{
    const int margins = 2 * fontMetrics().averageCharWidth();
    for (int column = 0; column < ChannelModel::Settings; ++column) {
        int width = m_table->horizontalHeader()->sectionSizeHint(column);
        for (int row = 0; row < std::min(measuredRows, m_filter->rowCount()); ++row) {
            const QString text = m_filter->index(row, column).data().toString();
            width = std::max(width, fontMetrics().horizontalAdvance(text) + margins);
        }
        m_table->setColumnWidth(column, width);
    }
}

/// As text, one line per selected channel, with tabs between the cells.
void ChannelView::copy() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex &row : qAsConst(rows)) {
        QStringList cells;
        for (int column = 0; column < ChannelModel::ColumnCount; ++column) {
            cells += row.siblingAtColumn(column).data().toString();
        }
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    QApplication::clipboard()->setText(text);
}

/// The channels that are shown, in their order.
void ChannelView::saveCsv()
{
    const QString path =
        askForNewFile(this, tr("Save Channels"), {}, tr("Comma-separated values (*.csv)"), QStringLiteral("csv"));
    if (path.isEmpty()) {
        return;
    }
    QString text = csvLine(csvHeader());
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        text += csvLine(m_model->cells(m_filter->mapToSource(m_filter->index(row, 0)).row()));
    }
    showFailure(this, tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path)), writeFile(path, text.toUtf8()));
}

void ChannelView::updateCount()
{
    const int total = m_model->rowCount();
    const QString text = tr("%1 of %2 channels");
    m_count->setText(text.arg(m_filter->rowCount()).arg(total));
    // The width of the longest text, because another width would move the check box away from the mouse.
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(text.arg(total).arg(total)));
}

void ChannelView::retranslate()
{
    m_search->setPlaceholderText(tr("Filter by module, address or setting"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_changedOnly->setText(tr("Changed &only"));
    m_changedOnly->setToolTip(tr("Show only channels with a value that differs from the factory settings"));
    m_table->setAccessibleName(tr("Channels"));
    m_copy->setText(tr("&Copy"));
    m_save->setText(tr("&Save as CSV..."));
    m_model->retranslate();
    updateCount();
}

void ChannelView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        fitColumns();
    }
}
