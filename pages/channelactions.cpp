#include "channelactions.h"

#include "explanation.h"
#include "guarded.h"
#include "parampage.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMetaProperty>
#include <QTableWidget>

#include <algorithm>

namespace {

/// Returns false if @p editor does not offer @p value.
bool setEditorValue(QWidget *editor, const QVariant &value)
{
    const QMetaProperty property = editor->metaObject()->userProperty();
    property.write(editor, value);
    return property.read(editor) == value;
}

/// Returns a menu with the entries that Qt gives the spin box @p editor, whose own menu cannot be extended.
QMenu *newStepMenu(QWidget *editor, QLineEdit *text)
{
    QMenu *const menu = text->createStandardContextMenu();
    menu->addSeparator();
    const auto addStep = [=](const char *title, auto step, const char *end) {
        QAction *const action = menu->addAction(QCoreApplication::translate("QAbstractSpinBox", title));
        action->setEnabled(editor->property("value") != editor->property(end));
        QObject::connect(action, &QAction::triggered, static_cast<QAbstractSpinBox *>(editor), step);
    };
    addStep("&Step up", &QAbstractSpinBox::stepUp, "maximum");
    addStep("Step &down", &QAbstractSpinBox::stepDown, "minimum");
    return menu;
}

/// Returns a menu with the entries of the editor's own context menu.
QMenu *newEditorMenu(QWidget *editor)
{
    if (qobject_cast<QAbstractSpinBox *>(editor) != nullptr) {
        return newStepMenu(editor, editor->findChild<QLineEdit *>());
    }
    auto *const text = qobject_cast<QLineEdit *>(editor);
    return text != nullptr ? text->createStandardContextMenu() : new QMenu(editor);
}

} // namespace

QVariant editorValue(const QWidget &editor)
{
    const auto *const choice = qobject_cast<const QComboBox *>(&editor);
    const auto *const text = qobject_cast<const QLineEdit *>(&editor);
    const bool hasValue =
        (choice == nullptr || choice->currentIndex() >= 0) && (text == nullptr || text->hasAcceptableInput());
    return hasValue ? editor.metaObject()->userProperty().read(&editor) : QVariant();
}

ChannelActions::ChannelActions(DefaultsPage *page) : QObject(page), m_page(page)
{
    m_actions = {
        newAction("applyToAllAction", QString(), QStringLiteral("Ctrl+Shift+D"), &ChannelActions::apply),
        newAction("fillDownAction", tr("Fill Down"), QStringLiteral("Ctrl+D"), &ChannelActions::fillDown),
        newAction("resetValueAction", tr("Reset to Default"), QStringLiteral("Ctrl+R"), &ChannelActions::reset),
    };
    nameApplyAction();
    page->setToolTip(tr("The context menu of an editor changes several channels at once."));
}

QAction *ChannelActions::newAction(const char *name, const QString &text, const QString &shortcut,
                                   void (ChannelActions::*run)())
{
    auto *action = new QAction(text, m_page);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(shortcut));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setShortcutVisibleInContextMenu(true);
    // Default values come from the host, which may throw.
    connect(action, &QAction::triggered, this, [this, run] { completes([this, run] { (this->*run)(); }); });
    m_page->addAction(action);
    return action;
}

void ChannelActions::add(const char *stem, int channel, QWidget *editor)
{
    const auto isWanted = [stem](const Column &column) { return qstrcmp(column.stem, stem) == 0; };
    auto found = std::find_if(m_columns.begin(), m_columns.end(), isWanted);
    if (found == m_columns.end()) {
        found = m_columns.insert(found, Column{stem, {}});
    }
    found->cells.append({channel, editor});
}

void ChannelActions::watchEditors()
{
    for (const Column &column : m_columns) {
        for (const Cell &cell : column.cells) {
            cell.editor->installEventFilter(this);
        }
    }
}

void ChannelActions::connectTable(QTableWidget *table)
{
    m_table = table;
    connect(table, &QTableWidget::itemSelectionChanged, this, &ChannelActions::nameApplyAction);
}

bool ChannelActions::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        m_lastEditor = editor;
        return false;
    case QEvent::ContextMenu:
        showMenu(editor, static_cast<QContextMenuEvent *>(event)->globalPos());
        return true;
    case QEvent::KeyPress:
        return moveFocus(editor, *static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

ChannelActions::Place ChannelActions::placeOf(const QWidget *editor) const
{
    for (const Column &column : m_columns) {
        for (int index = 0; index < column.cells.size(); ++index) {
            if (column.cells.at(index).editor == editor) {
                return {&column, index};
            }
        }
    }
    return {};
}

ChannelActions::Place ChannelActions::currentPlace() const
{
    const QWidget *const focus = m_page->focusWidget();
    const QWidget *const editor = focus != nullptr && focus == m_table ? m_lastEditor.data() : focus;
    return editor != nullptr && editor->isEnabledTo(m_page) ? placeOf(editor) : Place();
}

/// Returns the selected channels in ascending order; empty if fewer than two are selected.
QVector<int> ChannelActions::selectedChannels() const
{
    QVector<int> channels;
    const QModelIndexList indexes =
        m_table != nullptr ? m_table->selectionModel()->selectedIndexes() : QModelIndexList();
    for (const QModelIndex &index : indexes) {
        if (index.column() == 0) {
            channels.append(index.row());
        }
    }
    std::sort(channels.begin(), channels.end());
    return channels.size() > 1 ? channels : QVector<int>();
}

void ChannelActions::nameApplyAction()
{
    m_actions.front()->setText(selectedChannels().isEmpty() ? tr("Apply to All Channels")
                                                            : tr("Apply to Selected Channels"));
}

void ChannelActions::apply()
{
    const Place place = currentPlace();
    if (place.column == nullptr) {
        return;
    }
    Cells cells = place.column->cells;
    const QVector<int> selected = selectedChannels();
    const auto isLeftOut = [&selected](const Cell &cell) {
        return !selected.isEmpty() && !std::binary_search(selected.begin(), selected.end(), cell.channel);
    };
    cells.erase(std::remove_if(cells.begin(), cells.end(), isLeftOut), cells.end());
    give(cells, place.column->cells.at(place.index).editor);
}

void ChannelActions::fillDown()
{
    const Place place = currentPlace();
    if (place.column != nullptr) {
        give(place.column->cells.mid(place.index), place.column->cells.at(place.index).editor);
    }
}

/// Gives the value of @p source to the editors of @p cells, which may include @p source.
void ChannelActions::give(const Cells &cells, QWidget *source)
{
    if (auto *const number = qobject_cast<QAbstractSpinBox *>(source)) {
        number->interpretText(); // the user may still be typing
    }
    const QVariant value = editorValue(*source);
    if (!value.isValid()) {
        explain(source, tr("There is no valid value to apply."));
        return;
    }
    int applied = 0;
    int disabled = 0;
    for (const Cell &cell : cells) {
        const bool isSource = cell.editor == source;
        if (!isSource && !cell.editor->isEnabledTo(m_page)) {
            ++disabled;
        } else if (isSource || setEditorValue(cell.editor, value)) {
            ++applied;
        }
    }
    const int foreign = cells.size() - applied - disabled;
    QStringList sentences{tr("Applied to %1 of %2 channels.").arg(applied).arg(cells.size())};
    if (foreign > 0) {
        sentences.append(foreign == 1 ? tr("1 does not offer this value.")
                                      : tr("%1 do not offer this value.").arg(foreign));
    }
    if (disabled > 0) {
        sentences.append(disabled == 1 ? tr("1 is disabled.") : tr("%1 are disabled.").arg(disabled));
    }
    explain(source, sentences.join(QLatin1Char(' ')));
}

void ChannelActions::reset()
{
    const Place place = currentPlace();
    if (place.column == nullptr) {
        return;
    }
    const Cell cell = place.column->cells.at(place.index);
    const QVariant value = m_page->defaultValue(place.column->stem, cell.channel);
    const bool isReset = value.isValid() && setEditorValue(cell.editor, value);
    explain(cell.editor, isReset ? tr("Reset to the default value.") : tr("There is no default value."));
}

void ChannelActions::showMenu(QWidget *editor, const QPoint &place)
{
    editor->setFocus(Qt::PopupFocusReason);
    QMenu *const menu = newEditorMenu(editor);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    for (QAction *const action : m_actions) {
        menu->addAction(action);
    }
    menu->popup(place); // exec() would return to a page that the host may have destroyed
}

/// Returns false if @p key does not move the focus.
bool ChannelActions::moveFocus(const QWidget *editor, const QKeyEvent &key)
{
    if (key.modifiers().setFlag(Qt::KeypadModifier, false) != Qt::ControlModifier) {
        return false;
    }
    const Place place = placeOf(editor);
    const Cells &cells = place.column->cells;
    int index = 0;
    switch (key.key()) {
    case Qt::Key_Up:
        index = place.index - 1;
        break;
    case Qt::Key_Down:
        index = place.index + 1;
        break;
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        index = cells.size() - 1;
        break;
    default:
        return false;
    }
    // Disabled editors are skipped, away from the end of the column.
    const int step = key.key() == Qt::Key_Up || key.key() == Qt::Key_End ? -1 : 1;
    while (index >= 0 && index < cells.size()) {
        QWidget *const next = cells.at(index).editor;
        if (next->isEnabledTo(m_page)) {
            next->setFocus(Qt::TabFocusReason); // which also scrolls it into view
            return true;
        }
        index += step;
    }
    return true;
}
