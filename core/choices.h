// Every list of choices that a module parameter offers: the shown text and the value that is stored for it.
//
// Where a parameter stores the position of its choice, the code is that position; the frequency, mode and
// unit lists store codes of their own. Lists of words are translated, lists of values and units are not.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>

struct Choice {
    const char *text; ///< UTF-8, English
    quint16 code;     ///< what the record stores
};

/// A view of one list; copies are cheap and refer to the same constants.
class ChoiceList {
public:
    enum Texts { Verbatim, Translated };

    template <std::size_t N>
    constexpr ChoiceList(const std::array<Choice, N> &choices, Texts texts)
        : m_choices(choices.data()), m_size(static_cast<int>(N)), m_texts(texts)
    {
    }

    constexpr int size() const { return m_size; }
    constexpr bool isTranslated() const { return m_texts == Translated; }
    /// @p index must lie in the list.
    constexpr const Choice &at(int index) const { return m_choices[index]; }

    /// The shown texts, in the user's language where the list is translated.
    QStringList texts() const;
    /// The shown text of @p code; empty when the list has no such code.
    QString text(int code) const;
    /// The position of @p code, or -1.
    int indexOf(int code) const;

private:
    QString shownText(const Choice &choice) const;

    const Choice *m_choices;
    int m_size;
    Texts m_texts;
};

namespace choices {

extern const ChoiceList digitalFilterDelays; ///< input filter delay of four digital inputs
extern const ChoiceList sampleCounts;        ///< samples of an analog input's average

/// Disable, Enable: of channels and of every other switch.
extern const ChoiceList enable;
/// Open wire detection of voltage and current inputs; temperature inputs have no "Invalid" and use enable.
extern const ChoiceList openWire;
extern const ChoiceList filterTimes;            ///< of voltage and current inputs
extern const ChoiceList temperatureFilterTimes; ///< of thermocouples and resistance thermometers
extern const ChoiceList inputRanges;            ///< of voltage and current inputs
extern const ChoiceList thermocoupleRanges;
extern const ChoiceList resistanceRanges;
extern const ChoiceList directions;
extern const ChoiceList wiringSchemes;
extern const ChoiceList temperatureScales;
extern const ChoiceList outputRanges; ///< of analog outputs

extern const ChoiceList limitFrequencies;  ///< codes from 1
extern const ChoiceList sampleFrequencies; ///< codes from 1
extern const ChoiceList filterModes;
extern const ChoiceList addressUnits; ///< codes are bytes per unit

} // namespace choices
