#include "blockview.h"

#include "filequestions.h"
#include "files.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

using blockdecoder::DecodedBlock;
using blockdecoder::Field;

namespace {

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

BlockView::BlockView(const QByteArray &blocks, QString fileName, QWidget *parent)
    : QDialog(parent),
      m_bytes(blocks),
      m_fileName(std::move(fileName)),
      m_blocks(blockdecoder::decodeConfiguration(blocks)),
      m_list(tree(QStringLiteral("blockList"), tr("Blocks"), {tr("Rack"), tr("Slot"), tr("Module"), tr("Bytes")})),
      m_fields(tree(QStringLiteral("blockFields"), tr("Fields"),
                    {tr("Field"), tr("Value"), tr("Meaning"), tr("Offset"), tr("Bytes")}))
{
    setObjectName(QStringLiteral("blockView"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Configuration Blocks"));
    resize(1180, 640);

    auto *summary = new QLabel(tr("%n module(s), %1 bytes, in the order of racks and slots", nullptr, m_blocks.size())
                                   .arg(locale().toString(m_bytes.size())));
    summary->setObjectName(QStringLiteral("blockSummary"));
    auto *panes = new QSplitter;
    panes->addWidget(m_list);
    panes->addWidget(m_fields);
    panes->setStretchFactor(1, 1);
    panes->setSizes({340, 840});
    panes->setChildrenCollapsible(false);
    auto *buttons = new QDialogButtonBox;
    QPushButton *save = buttons->addButton(tr("&Save..."), QDialogButtonBox::ActionRole);
    save->setObjectName(QStringLiteral("saveBlockButton"));
    buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(summary);
    layout->addWidget(panes, 1);
    layout->addWidget(buttons);

    m_list->setRootIsDecorated(false);
    connect(save, &QPushButton::clicked, this, &BlockView::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem *item) { showFields(m_list->indexOfTopLevelItem(item)); });
    listBlocks();
}

void BlockView::listBlocks()
{
    for (const DecodedBlock &block : qAsConst(m_blocks)) {
        auto *item =
            new QTreeWidgetItem(m_list, {storedText(block, "header.rackId"), storedText(block, "header.slotId"),
                                         storedText(block, "header.objName"), QString::number(block.size)});
        item->setToolTip(2, block.kind);
    }
    fitColumns(*m_list);
    m_list->setCurrentItem(m_list->topLevelItem(0));
}

void BlockView::showFields(int number)
{
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
}

void BlockView::save()
{
    const QString path =
        askForNewFile(this, tr("Save Configuration Blocks"), m_fileName, blockFilter(), QStringLiteral("blk"));
    if (!path.isEmpty()) {
        showFailure(this, tr("%1 cannot be written.").arg(QDir::toNativeSeparators(path)), writeFile(path, m_bytes));
    }
}
