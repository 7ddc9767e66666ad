#include "choices.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr auto translationContext = "Choices";

/// Returns choices whose codes are their positions.
template <typename... Texts>
constexpr std::array<Choice, sizeof...(Texts)> positions(Texts... texts)
{
    quint16 code = 0;
    return {Choice{texts, code++}...};
}

// Intended: the last entry has one decimal place, the others have two.
constexpr std::array digitalFilterDelayTable =
    positions("0.20ms", "0.40ms", "0.80ms", "1.60ms", "3.20ms", "6.40ms", "12.8ms");

constexpr std::array sampleCountTable = positions("2", "4", "8", "16", "32", "64", "128", "256");

constexpr std::array enableTable =
    positions(QT_TRANSLATE_NOOP("Choices", "Disable"), QT_TRANSLATE_NOOP("Choices", "Enable"));

constexpr std::array openWireTable =
    positions(QT_TRANSLATE_NOOP("Choices", "Disable"), QT_TRANSLATE_NOOP("Choices", "Enable"),
              QT_TRANSLATE_NOOP("Choices", "Invalid"));

constexpr std::array filterTimeTable = positions("1ms", "10ms", "20ms", "50ms", "100ms");

constexpr std::array temperatureFilterTimeTable = positions("100ms", "200ms", "500ms", "1s", "5s");

constexpr std::array inputRangeTable = positions("0~10V", "+/-10V", "0~20mA", "4~20mA");

constexpr std::array thermocoupleRangeTable = positions("B", "E", "N", "J", "K", "R", "S", "T", "+/-80mV");

constexpr std::array resistanceRangeTable =
    positions(u8"Pt-100Ω(α=3850ppm)", u8"Pt-100Ω(α=3920ppm)", u8"Pt-100Ω(α=3850.55ppm)", u8"Pt-100Ω(α=3916ppm)",
              u8"Pt-100Ω(α=3902ppm)", u8"Pt-500Ω(α=3850ppm)", u8"Pt-500Ω(α=3920ppm)", u8"Pt-500Ω(α=3850.55ppm)",
              u8"Pt-500Ω(α=3916ppm)", u8"Pt-500Ω(α=3902ppm)", u8"Pt-1000Ω(α=3850ppm)", u8"Pt-1000Ω(α=3920ppm)",
              u8"Pt-1000Ω(α=3850.55ppm)", u8"Pt-1000Ω(α=3916ppm)", u8"Pt-1000Ω(α=3902ppm)", "Cu100", "NTC5K(B=3435)",
              "NTC5K(B=3950)", "NTC10K(B=3435)", "NTC10K(B=3950)");

constexpr std::array directionTable =
    positions(QT_TRANSLATE_NOOP("Choices", "Upscale"), QT_TRANSLATE_NOOP("Choices", "Downscale"));

constexpr std::array wiringSchemeTable =
    positions(QT_TRANSLATE_NOOP("Choices", "2-wire"), QT_TRANSLATE_NOOP("Choices", "3-wire"));

constexpr std::array temperatureScaleTable =
    positions(QT_TRANSLATE_NOOP("Choices", "Degrees Celsius"), QT_TRANSLATE_NOOP("Choices", "Degrees Fahrenheit"));

// Intended: the lower-case v, which the input ranges do not have.
constexpr std::array outputRangeTable = positions("0~10V", "+/-10v", "0~20mA", "4~20mA");

constexpr std::array limitFrequencyTable = {
    Choice{"1Hz", 1},    Choice{"2Hz", 2},     Choice{"5Hz", 3},     Choice{"10Hz", 4},   Choice{"15Hz", 5},
    Choice{"25Hz", 6},   Choice{"30Hz", 7},    Choice{"50Hz", 8},    Choice{"60Hz", 9},   Choice{"100Hz", 10},
    Choice{"500Hz", 11}, Choice{"1000Hz", 12}, Choice{"2000Hz", 13}, Choice{"3000Hz", 14}};

constexpr std::array sampleFrequencyTable = {Choice{"50Hz", 1},  Choice{"60Hz", 2},   Choice{"100Hz", 3},
                                             Choice{"400Hz", 4}, Choice{"1200Hz", 5}, Choice{"2400Hz", 6}};

constexpr std::array filterModeTable = positions("Default", "Disable");

constexpr std::array addressUnitTable = {Choice{"Words", 2}, Choice{"Bytes", 1}, Choice{"DWord", 4}};

} // namespace

namespace choices {

const ChoiceList digitalFilterDelays{digitalFilterDelayTable, ChoiceList::Verbatim};
const ChoiceList sampleCounts{sampleCountTable, ChoiceList::Verbatim};
const ChoiceList enable{enableTable, ChoiceList::Translated};
const ChoiceList openWire{openWireTable, ChoiceList::Translated};
const ChoiceList filterTimes{filterTimeTable, ChoiceList::Verbatim};
const ChoiceList temperatureFilterTimes{temperatureFilterTimeTable, ChoiceList::Verbatim};
const ChoiceList inputRanges{inputRangeTable, ChoiceList::Verbatim};
const ChoiceList thermocoupleRanges{thermocoupleRangeTable, ChoiceList::Verbatim};
const ChoiceList resistanceRanges{resistanceRangeTable, ChoiceList::Verbatim};
const ChoiceList directions{directionTable, ChoiceList::Translated};
const ChoiceList wiringSchemes{wiringSchemeTable, ChoiceList::Translated};
const ChoiceList temperatureScales{temperatureScaleTable, ChoiceList::Translated};
const ChoiceList outputRanges{outputRangeTable, ChoiceList::Verbatim};
const ChoiceList limitFrequencies{limitFrequencyTable, ChoiceList::Verbatim};
const ChoiceList sampleFrequencies{sampleFrequencyTable, ChoiceList::Verbatim};
const ChoiceList filterModes{filterModeTable, ChoiceList::Verbatim};
const ChoiceList addressUnits{addressUnitTable, ChoiceList::Verbatim};

} // namespace choices

QStringList ChoiceList::texts() const
{
    QStringList texts;
    texts.reserve(m_size);
    std::transform(m_choices, m_choices + m_size, std::back_inserter(texts),
                   [this](const Choice &choice) { return shownText(choice); });
    return texts;
}

QString ChoiceList::text(int code) const
{
    const int index = indexOf(code);
    return index < 0 ? QString() : shownText(at(index));
}

int ChoiceList::indexOf(int code) const
{
    const Choice *const end = m_choices + m_size;
    const Choice *const found =
        std::find_if(m_choices, end, [code](const Choice &choice) { return choice.code == code; });
    return found == end ? -1 : static_cast<int>(found - m_choices);
}

QString ChoiceList::shownText(const Choice &choice) const
{
    return isTranslated() ? QCoreApplication::translate(translationContext, choice.text)
                          : QString::fromUtf8(choice.text);
}
