#include "blockview.h"

#include "columngap.h"
#include "enterkey.h"
#include "filequestions.h"
#include "files.h"
#include "windowsize.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

using blockdecoder::DecodedBlock;
using blockdecoder::Field;

namespace {

constexpr int shownMissing = 8;
constexpr int shownBytes = 64; // numbers are shorter, and texts are shown as such

QString hexOffset(int offset)
{
    return QStringLiteral("%1").arg(offset, 4, 16, QLatin1Char('0')).toUpper();
}

QString hexBytes(const QByteArray &bytes)
{
    const QString text = QString::fromLatin1(bytes.left(shownBytes).toHex(' ').toUpper());
    return bytes.size() > shownBytes ? text + QStringLiteral(" ...") : text;
}

/// Empty for bytes without a further structure, which have a separate column.
QString valueText(const Field &field)
{
    return field.value.type() == QVariant::ByteArray ? QString() : field.value.toString();
}

QString storedText(const DecodedBlock &block, const char *name)
{
    const Field *field = block.find(QLatin1String(name));
    return field == nullptr ? QStringLiteral("?") : field->value.toString();
}

Place placeOf(const QTreeWidgetItem &block)
{
    return {block.text(0).toInt(), block.text(1).toInt()};
}

QTreeWidget *tree(const QString &objectName, const QString &accessibleName, const QStringList &labels)
{
    auto *widget = new QTreeWidget;
    widget->setObjectName(objectName);
    widget->setAccessibleName(accessibleName);
    widget->setHeaderLabels(labels);
    widget->setAlternatingRowColors(true);
    widget->setUniformRowHeights(true);
    return widget;
}

void fitColumns(QTreeWidget &widget)
{
    for (int column = 0; column < widget.columnCount(); ++column) {
        widget.resizeColumnToContents(column);
    }
}

} // namespace

BlockView::BlockView(QWidget *parent)
    : QDialog(parent),
      m_summary(new QLabel(this)),
      m_missing(new QLabel(this)),
      m_outdated(new QWidget(this)),
      m_list(tree(QStringLiteral("blockList"), tr("Blocks"), {tr("Rack"), tr("Slot"), tr("Module"), tr("Bytes")})),
      m_fields(tree(QStringLiteral("blockFields"), tr("Fields"),
                    {tr("Field"), tr("Value"), tr("Meaning"), tr("Offset"), tr("Bytes")}))
{
    setObjectName(QStringLiteral("blockView"));
    installEventFilter(new EnterKey(this));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Configuration Blocks"));
    resizeToFit(*this, {1180, 640});

    m_summary->setObjectName(QStringLiteral("blockSummary"));
    m_missing->setObjectName(QStringLiteral("missingModules"));
    m_missing->setWordWrap(true);
    m_missing->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_outdated->setObjectName(QStringLiteral("outdatedNote"));
    auto *again = new QPushButton(tr("&Compile Again"));
    again->setObjectName(QStringLiteral("compileAgainButton"));
    auto *note = new QHBoxLayout(m_outdated);
    note->setContentsMargins(0, 0, 0, 0);
    note->addWidget(new QLabel(tr("The station has changed. These blocks are outdated.")));
    note->addWidget(again);
    note->addStretch();
    auto *panes = new QSplitter;
    panes->addWidget(m_list);
    panes->addWidget(m_fields);
    panes->setStretchFactor(1, 1);
    panes->setSizes({340, 840});
    panes->setChildrenCollapsible(false);
    auto *buttons = new QDialogButtonBox;
    m_save = buttons->addButton(tr("&Save..."), QDialogButtonBox::ActionRole);
    m_save->setObjectName(QStringLiteral("saveBlockButton"));
    buttons->addButton(tr("C&lose"), QDialogButtonBox::RejectRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_missing);
    layout->addWidget(m_outdated);
    layout->addWidget(panes, 1);
    layout->addWidget(buttons);

    m_list->setRootIsDecorated(false);
    m_list->setItemDelegate(new ColumnGap(m_list));
    connect(m_save, &QPushButton::clicked, this, &BlockView::save);
    connect(again, &QPushButton::clicked, this, &BlockView::compileRequested);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem *item) { showFields(m_list->indexOfTopLevelItem(item)); });
}

void BlockView::setBlocks(const QByteArray &blocks, const std::vector<ModuleSummary> &missing, const QString &fileName)
{
    m_bytes = blocks;
    m_save->setEnabled(!blocks.isEmpty());
    m_fileName = fileName;
    m_blocks = blocks.isEmpty() ? QVector<DecodedBlock>() : blockdecoder::decodeConfiguration(blocks);
    const int total = m_blocks.size() + static_cast<int>(missing.size());
    const QString bytes = QString::number(m_bytes.size());
    m_summary->setText(missing.empty()
                           ? tr("%n module(s), %1 bytes, in the order of racks and slots", nullptr, total).arg(bytes)
                           : tr("%1 of %n module(s), %2 bytes, in the order of racks and slots", nullptr, total)
                                 .arg(QString::number(m_blocks.size()), bytes));
    QStringList lines;
    for (const ModuleSummary &module : missing) {
        if (lines.size() == shownMissing) {
            lines += QStringLiteral("...");
            break;
        }
        lines += tr("Not compiled: \"%1\" in rack %2, slot %3. %4")
                     .arg(module.name, QString::number(module.place.rack), QString::number(module.place.slot),
                          module.unavailable);
    }
    m_missing->setText(lines.join(QLatin1Char('\n')));
    m_missing->setVisible(!lines.isEmpty());
    setOutdated(false);
    listBlocks();
}

void BlockView::setOutdated(bool isOutdated)
{
    m_outdated->setVisible(isOutdated);
}

void BlockView::showBlockOf(Place place)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = m_list->topLevelItem(i);
        if (placeOf(*item) == place) {
            m_list->setCurrentItem(item);
        }
    }
}

void BlockView::listBlocks()
{
    const QTreeWidgetItem *shown = m_list->currentItem();
    const Place place = shown == nullptr ? Place{} : placeOf(*shown);
    m_list->clear();
    for (const DecodedBlock &block : qAsConst(m_blocks)) {
        auto *item =
            new QTreeWidgetItem(m_list, {storedText(block, "header.rackId"), storedText(block, "header.slotId"),
                                         storedText(block, "header.objName"), QString::number(block.size)});
        item->setToolTip(2, block.kind);
    }
    fitColumns(*m_list);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    showBlockOf(place);
}

/// Keeps the scroll position, because the same field of another block is often wanted next.
void BlockView::showFields(int number)
{
    const int scrollValue = m_fields->verticalScrollBar()->value();
    m_fields->clear();
    if (number < 0) {
        return;
    }
    const DecodedBlock &block = m_blocks.at(number);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (const blockdecoder::Part &part : block.parts) {
        auto *group = new QTreeWidgetItem(m_fields, {part.title});
        for (const Field &field : part.fields) {
            auto *item = new QTreeWidgetItem(
                group, {field.name, valueText(field), field.meaning, hexOffset(field.offset), hexBytes(field.raw)});
            item->setFont(3, fixed);
            item->setFont(4, fixed);
        }
        group->setFirstColumnSpanned(true);
        group->setExpanded(true);
    }
    for (const blockdecoder::Damage &damage : block.damages) {
        new QTreeWidgetItem(m_fields,
                            {damage.name, tr("damaged"),
                             tr("%1 expected, %2 found: %3").arg(damage.expected, damage.found, damage.effect),
                             hexOffset(damage.offset)});
    }
    fitColumns(*m_fields);
    m_fields->verticalScrollBar()->setValue(scrollValue);
}

void BlockView::save()
{
    const QString path =
        askForNewFile(this, tr("Save Configuration Blocks"), m_fileName, blockFilter(), QStringLiteral("blk"));
    if (path.isEmpty()) {
        return;
    }
    const Result<> written = writeFile(path, m_bytes);
    showFailure(this, tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path)), written);
    if (written) {
        emit saved(path);
    }
}
