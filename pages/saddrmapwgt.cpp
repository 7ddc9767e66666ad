#include "saddrmapwgt.h"

#include "baseservices.h"
#include "basewidgets.h"
#include "choices.h"
#include "explanation.h"
#include "imagerange.h"
#include "simpleextendpar.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// An area that a range of a direction may be in.
struct NamedArea {
    VarArea area;
    const char *name; ///< the host's name for the size of the area
};
using NamedAreas = std::array<NamedArea, 3>;

constexpr NamedAreas inputAreas = {
    {{VarArea::AnalogInput, "AIEx"}, {VarArea::DigitalInput, "IEx"}, {VarArea::Variable, "V"}}};
constexpr NamedAreas outputAreas = {
    {{VarArea::AnalogOutput, "AQEx"}, {VarArea::DigitalOutput, "QEx"}, {VarArea::Variable, "V"}}};

/// Shown in place of the numbers of a direction without channels.
QString noNumber()
{
    return QStringLiteral("\u2013");
}

/// Returns the name of an area; an empty string if @p areas does not contain it.
QString nameOf(const NamedAreas &areas, quint8 area)
{
    const auto *const found = std::find_if(areas.begin(), areas.end(), [area](const NamedArea &candidate) {
        return static_cast<quint8>(candidate.area) == area;
    });
    return found == areas.end() ? QString() : QString::fromLatin1(found->name);
}

/// Returns the highest start of @p range in the area that the host calls @p name; 0 without a name. The arithmetic is
/// unsigned and may wrap. It is intended that the count of word channels is subtracted twice and the rest multiplied by
/// the unit, because existing projects rely on it.
quint32 highestStart(const QString &owner, const IoMap &range, const QString &name)
{
    if (name.isEmpty()) {
        return 0;
    }
    const PlcTypeVersion plc = getPrjPlcTypeVersion(owner);
    const quint32 size = getPlcAddrRange(plc.type, plc.version, name);
    const quint32 count = range.count;
    const quint32 unit = range.unit;
    if (!name.endsWith(QLatin1String("Ex"))) {
        return size - unit * count;
    }
    return unit == 0 ? size - static_cast<quint32>(bytesOfChannels(0, count)) : (size - unit * count - count) * unit;
}

} // namespace

SAddrMapWgt::SAddrMapWgt(SimpleExtendPar *par, SimpleExtendPar * /*defaultPar*/, QWidget *parent)
    : ParamPage(par, parent)
{
    setUp();
}

SAddrMapWgt::~SAddrMapWgt()
{
    // A focused start emits editingFinished while QWidget deletes it, when SAddrMapWgt is already destroyed.
    m_input.start->disconnect(this);
    m_output.start->disconnect(this);
}

void SAddrMapWgt::initUI()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(newGroup(m_input, tr("Input"), QStringLiteral("input")));
    layout->addWidget(newGroup(m_output, tr("Output"), QStringLiteral("output")));
    layout->addStretch();
}

QGroupBox *SAddrMapWgt::newGroup(Direction &direction, const QString &title, const QString &stem)
{
    direction.group = new QGroupBox(title);
    direction.start = new MSpinBoxEx;
    direction.end = new QLineEdit;
    direction.end->setReadOnly(true);
    QPalette readOnly;
    readOnly.setBrush(QPalette::Base, Qt::transparent); // shows the page, unlike the fields that can be edited
    direction.end->setPalette(readOnly);
    direction.end->setPlaceholderText(noNumber());
    direction.end->setSizePolicy(QSizePolicy::Expanding,
                                 QSizePolicy::Preferred); // as high as the start, same base line
    direction.length = new QSpinBox;
    direction.length->setRange(0, std::numeric_limits<quint8>::max());
    direction.length->setSpecialValueText(noNumber());
    direction.length->setEnabled(false);
    direction.unit = new QComboBox;
    for (int i = 0; i < choices::addressUnits.size(); ++i) {
        const Choice &unit = choices::addressUnits.at(i);
        direction.unit->addItem(choices::addressUnits.text(unit.code), unit.code);
    }
    direction.unit->setEnabled(false);
    direction.memory = new QLabel;
    direction.memory->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *grid = new QGridLayout(direction.group);
    const auto add = [&](int row, int column, const QString &text, QWidget *editor, const char *name) {
        editor->setObjectName(stem + QLatin1String(name));
        QString plainText = text;
        while (!plainText.isEmpty() && plainText.back().isPunct()) {
            plainText.chop(1); // the colon of the language
        }
        describeEditor(editor, QStringLiteral("%1, %2").arg(title, plainText));
        grid->addWidget(newLabel(text, editor), row, column);
        grid->addWidget(editor, row, column + 1);
    };
    grid->addWidget(new QLabel(tr("Address")), 0, 0);
    add(0, 1, tr("Start:"), direction.start, "Start");
    add(0, 3, tr("End:"), direction.end, "End");
    add(1, 1, tr("Length"), direction.length, "Length");
    add(1, 3, tr("Unit"), direction.unit, "Unit");
    add(2, 1, tr("Memory:"), direction.memory, "Memory");
    direction.memory->setAccessibleName(QString()); // assistive technology then reads the text of the label
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(4, 1);
    return direction.group;
}

void SAddrMapWgt::initConnect()
{
    connect(m_input.start, &MSpinBoxEx::editingFinished, this, &SAddrMapWgt::slot_editingInputFinished);
    connect(m_output.start, &MSpinBoxEx::editingFinished, this, &SAddrMapWgt::slot_editingOutputFinished);
    m_input.start->installEventFilter(this);
    m_output.start->installEventFilter(this);
}

void SAddrMapWgt::initData(SimpleExtendPar *par)
{
    showRange(m_input, par->inMap, nameOf(inputAreas, par->inMap.area));
    showRange(m_output, par->outMap, nameOf(outputAreas, par->outMap.area));
}

void SAddrMapWgt::showRange(Direction &direction, const IoMap &range, const QString &areaName)
{
    constexpr quint32 maximumStart = std::numeric_limits<quint16>::max();
    const bool isBits = range.unit == 0;
    const int unitIndex = choices::addressUnits.indexOf(isBits ? 1 : range.unit);
    direction.unitSize = unitIndex < 0 ? 0 : choices::addressUnits.at(unitIndex).code;
    direction.unitCount = isBits ? static_cast<int>(bytesOfChannels(0, range.count)) : range.count;
    direction.highestStart = static_cast<int>(qMin(highestStart(m_par->memoryOwner, range, areaName), maximumStart));
    direction.acceptedStart = range.start;

    // An allocator may have placed the range above the highest start. It stays there until the user moves it.
    direction.start->setRange(0, qMax<int>(direction.highestStart, range.start));
    direction.start->setToolTip(QStringLiteral("0~%1").arg(direction.highestStart));
    describeEditor(direction.start, direction.start->accessibleName());
    direction.start->setSpecialValueText(range.count == 0 ? noNumber() : QString()); // 0 is an address otherwise
    direction.start->setValue(range.start);
    direction.start->setSingleStep(direction.isUnitEven() ? 2 : 1);
    direction.length->setValue(direction.unitCount);
    direction.unit->setCurrentIndex(unitIndex);
    direction.memory->setText(QString(areaName).remove(QStringLiteral("Ex")));
    direction.group->setEnabled(range.count != 0);
    checkStart(direction);
}

void SAddrMapWgt::slot_editingInputFinished()
{
    checkStart(m_input);
}

void SAddrMapWgt::slot_editingOutputFinished()
{
    checkStart(m_output);
}

bool SAddrMapWgt::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const bool endsEditing = key == Qt::Key_Return || key == Qt::Key_Enter;
        for (Direction *const direction : {&m_input, &m_output}) {
            if (endsEditing && watched == direction->start && !checkStart(*direction)) {
                direction->start->selectAll();
                return true;
            }
        }
    }
    return ParamPage::eventFilter(watched, event);
}

bool SAddrMapWgt::checkStart(Direction &direction)
{
    direction.start->interpretText();
    const int start = direction.start->value();
    const bool isAligned = !direction.isUnitEven() || start % 2 == 0;
    const bool isAccepted = start == direction.acceptedStart || (isAligned && start <= direction.highestStart);
    if (isAccepted) {
        direction.acceptedStart = start;
        direction.start->setMaximum(qMax(direction.highestStart, start));
    } else {
        direction.start->setValue(direction.acceptedStart);
        explainStart(direction);
    }
    const int end = direction.acceptedStart + direction.byteCount() - 1;
    direction.end->setText(direction.unitCount == 0 ? QString() : QString::number(end));
    return isAccepted;
}

void SAddrMapWgt::explainStart(const Direction &direction)
{
    const QString text = direction.isUnitEven() ? tr("The start must be an even number from 0 to %1.")
                                                : tr("The start must be a number from 0 to %1.");
    explain(direction.start, text.arg(direction.highestStart));
}

bool SAddrMapWgt::saveData()
{
    // OK can be pressed while a start is edited.
    checkStart(m_input);
    checkStart(m_output);

    backupUsedMemory(m_par->memoryOwner);
    m_snapshots.append(Changes());
    if (const qint32 answer = moveRange(m_input, m_par->inMap, m_snapshots.last().input); answer != memoryHeld) {
        return rejectStart(m_input, answer);
    }
    if (!isMoved(m_output, m_par->outMap)) {
        return true; // intended: the snapshot stays open until the one from before the dialog ends
    }
    if (const qint32 answer = moveRange(m_output, m_par->outMap, m_snapshots.last().output); answer != memoryHeld) {
        return rejectStart(m_output, answer);
    }
    popBackupMemory(m_par->memoryOwner);
    const Changes changes = m_snapshots.takeLast();
    m_snapshots.last().input.add(changes.input);
    m_snapshots.last().output.add(changes.output);
    return true;
}

bool SAddrMapWgt::isMoved(const Direction &direction, const IoMap &range)
{
    return range.count != 0 && direction.start->value() != range.start;
}

/// Returns the answer of getMemory; memoryHeld if there is nothing to move.
qint32 SAddrMapWgt::moveRange(const Direction &direction, IoMap &range, Change &change)
{
    if (!isMoved(direction, range)) {
        return memoryHeld;
    }
    const auto area = static_cast<VarArea>(range.area);
    const int start = direction.start->value();
    freeMemory(m_par->memoryOwner, area, range.start, direction.byteCount());
    const qint32 answer = getMemory(m_par->memoryOwner, area, start, direction.byteCount());
    if (answer == memoryHeld) {
        change = {true, range.start, static_cast<quint16>(start)};
        range.start = change.after;
    }
    return answer;
}

bool SAddrMapWgt::rejectStart(const Direction &direction, qint32 errorCode)
{
    restoreSnapshot();
    return refuse(direction.start, QMessageBox::Warning, getMemoryErrStrByErrCode(errorCode));
}

/// Restores the page's latest open snapshot and the starts that belong to it.
void SAddrMapWgt::restoreSnapshot()
{
    restoreUsedMemory(m_par->memoryOwner);
    discard();
    m_snapshots.removeLast();
}

void SAddrMapWgt::rollBack()
{
    while (m_snapshots.size() > 1) {
        restoreSnapshot();
    }
}

void SAddrMapWgt::discard()
{
    m_snapshots.last().input.revert(m_par->inMap.start);
    m_snapshots.last().output.revert(m_par->outMap.start);
}

void SAddrMapWgt::Change::add(const Change &later)
{
    if (later.isMade) {
        const bool continues = isMade && after == later.before;
        *this = {true, continues ? before : later.before, later.after};
    }
}

void SAddrMapWgt::Change::revert(quint16 &start) const
{
    if (isMade && start == after) {
        start = before;
    }
}
