// The choices of each module parameter: the shown text and the stored code.
//
// The code is the position of the choice, except in the frequency and unit lists, which have their own codes. Lists of
// words are translated. Lists of values with units are not.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>

struct Choice {
    const char *text; ///< UTF-8, English
    quint16 code;     ///< the stored value
};

/// A view of one list. Copies are cheap and refer to the same constants.
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
    /// @p index must be 0 to size() - 1.
    constexpr const Choice &at(int index) const { return m_choices[index]; }

    /// Returns the shown texts, in the user's language if the list is translated.
    QStringList texts() const;
    /// Returns the shown text of @p code; empty if the list has no such code.
    QString text(int code) const;
    /// Returns the position of @p code; -1 if the list has no such code.
    int indexOf(int code) const;

private:
    QString shownText(const Choice &choice) const;

    const Choice *m_choices;
    int m_size;
    Texts m_texts;
};

namespace choices {

extern const ChoiceList digitalFilterDelays; ///< filter delay of four digital inputs
extern const ChoiceList sampleCounts;        ///< samples that an analog input averages

/// Disable and Enable, for channels and for all other switches.
extern const ChoiceList enable;
/// Open wire detection of voltage and current inputs. Temperature inputs have no "Invalid" and use enable.
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
