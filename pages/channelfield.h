// The parameters of a channel, each declared once, and the editors that show and store them.
#pragma once

#include "choices.h"
#include "decimalspinbox.h"
#include "fieldlimits.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QLineEdit>
#include <QSpinBox>
#include <QVector>

#include <algorithm>
#include <optional>

/// The parts of a field's declaration that are independent of the record.
struct FieldInfo {
    const char *title;                      ///< English, translated in the context of the page
    const char *stem;                       ///< of the editors' object names
    Limits limits{};                        ///< of numbers
    int decimals = 0;                       ///< of numbers
    const ChoiceList *choices = nullptr;    ///< of combo boxes, else null
    std::optional<quint16> withoutChoice{}; ///< stored by a combo box without a selection; nullopt = the code stays

    /// Returns the tool tip of a number, such as "0~32.0000".
    QString limitsText() const
    {
        return QStringLiteral("%1~%2").arg(limits.minimum).arg(double(limits.maximum), 0, 'f', decimals);
    }
};

/// The kinds of fields: the class of their editors and how these show and return a value.
namespace fields {

/// 0 or 1.
struct Switch {
    using Editor = QCheckBox;
    static void show(const FieldInfo & /*info*/, Editor &editor, int value) { editor.setChecked(value == 1); }
    static int value(const FieldInfo & /*info*/, const Editor &editor, int /*stored*/)
    {
        return editor.isChecked() ? 1 : 0;
    }
};

/// A code; the combo box offers all choices in their order. A code without a choice clears the selection.
struct Code {
    using Editor = QComboBox;
    static void show(const FieldInfo &info, Editor &editor, int value)
    {
        editor.setCurrentIndex(info.choices->indexOf(value));
    }
    static int value(const FieldInfo &info, const Editor &editor, int stored)
    {
        const int index = editor.currentIndex();
        return index < 0 ? info.withoutChoice.value_or(stored) : info.choices->at(index).code;
    }
};

/// A whole number.
struct Number {
    using Editor = QSpinBox;
    static void show(const FieldInfo & /*info*/, Editor &editor, int value) { editor.setValue(value); }
    static int value(const FieldInfo & /*info*/, const Editor &editor, int /*stored*/) { return editor.value(); }
};

/// A number with a fraction.
struct Decimal {
    using Editor = DecimalSpinBox;
    static void show(const FieldInfo & /*info*/, Editor &editor, float value) { editor.showStored(value); }
    static float value(const FieldInfo & /*info*/, const Editor &editor, float /*stored*/) { return editor.toStore(); }
};

/// A 16-bit number in a line edit; 0 for any other text.
struct NumberText {
    using Editor = QLineEdit;
    static void show(const FieldInfo & /*info*/, Editor &editor, int value) { editor.setText(QString::number(value)); }
    static int value(const FieldInfo & /*info*/, const Editor &editor, int /*stored*/)
    {
        return editor.text().toShort();
    }
};

} // namespace fields

/// One parameter of every channel. @c Entry holds the parameters of one channel in the record.
template <typename Entry>
struct ChannelField : FieldInfo {
    void (*show)(const FieldInfo &info, QWidget *editor, const Entry &entry);
    void (*store)(const FieldInfo &info, const QWidget *editor, Entry &entry);
};

template <typename Kind, auto Member>
struct FieldOf;
template <typename Kind, typename Entry, typename Value, Value Entry::*Member>
struct FieldOf<Kind, Member> {
    static void show(const FieldInfo &info, QWidget *editor, const Entry &entry)
    {
        Kind::show(info, *static_cast<typename Kind::Editor *>(editor), entry.*Member);
    }
    static void store(const FieldInfo &info, const QWidget *editor, Entry &entry)
    {
        const auto &known = *static_cast<const typename Kind::Editor *>(editor);
        entry.*Member = static_cast<Value>(Kind::value(info, known, entry.*Member));
    }
    static constexpr ChannelField<Entry> declare(const FieldInfo &info) { return {info, show, store}; }
};

/// Declares a field of the given kind that is stored in @c Member.
template <typename Kind, auto Member>
constexpr auto channelField(const char *title, const char *stem, const Limits &limits = {}, int decimals = 0)
{
    return FieldOf<Kind, Member>::declare({title, stem, limits, decimals});
}
template <auto Member>
constexpr auto channelField(const char *title, const char *stem, const ChoiceList &choices,
                            std::optional<quint16> withoutChoice = {})
{
    return FieldOf<fields::Code, Member>::declare({title, stem, {}, 0, &choices, withoutChoice});
}

/// The editors of a page by channel and field. It owns neither the editors nor the fields, which must outlive it.
template <typename Entry>
class ChannelEditors {
public:
    using Field = ChannelField<Entry>;
    using Entries = QHash<quint8, Entry>; ///< the parameters of all channels by channel

    int channelCount() const { return m_channels.size(); }

    /// Adds an editor of the last channel or of the one after it. show() and store() keep the order of the calls.
    void add(const Field &field, int channel, QWidget *editor)
    {
        m_channels.resize(channel + 1);
        m_channels[channel].append({&field, editor});
    }

    /// Returns the editor of @p field, which is an @c Editor and has been added for @p channel.
    template <typename Editor = QWidget>
    Editor *at(const Field &field, int channel) const
    {
        const auto &cells = m_channels.at(channel);
        const auto isWanted = [&field](const Cell &cell) { return qstrcmp(cell.field->stem, field.stem) == 0; };
        return static_cast<Editor *>(std::find_if(cells.begin(), cells.end(), isWanted)->editor);
    }

    /// Shows an entry in each of the first @p count channels, default constructed where @p entries has none.
    void show(const Entries &entries, int count) const
    {
        for (int channel = 0; channel < qMin(count, channelCount()); ++channel) {
            const Entry entry = entries.value(static_cast<quint8>(channel));
            for (const Cell &cell : m_channels.at(channel)) {
                cell.field->show(*cell.field, cell.editor, entry);
            }
        }
    }
    void show(const Entries &entries) const { show(entries, channelCount()); }

    void store(int channel, Entry &entry) const
    {
        for (const Cell &cell : m_channels.at(channel)) {
            cell.field->store(*cell.field, cell.editor, entry);
        }
    }
    void store(Entries &entries) const
    {
        for (int channel = 0; channel < channelCount(); ++channel) {
            store(channel, entries[static_cast<quint8>(channel)]);
        }
    }

private:
    struct Cell {
        const Field *field;
        QWidget *editor;
    };
    QVector<QVector<Cell>> m_channels;
};
