#include "choices.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr auto translationContext = "Choices";

// The last entry has one decimal place where the others have two; it is spelled so on purpose.
constexpr std::array digitalFilterDelayTable = {Choice{"0.20ms", 0}, Choice{"0.40ms", 1}, Choice{"0.80ms", 2},
                                                Choice{"1.60ms", 3}, Choice{"3.20ms", 4}, Choice{"6.40ms", 5},
                                                Choice{"12.8ms", 6}};

constexpr std::array sampleCountTable = {Choice{"2", 0},  Choice{"4", 1},  Choice{"8", 2},   Choice{"16", 3},
                                         Choice{"32", 4}, Choice{"64", 5}, Choice{"128", 6}, Choice{"256", 7}};

constexpr std::array enableTable = {Choice{QT_TRANSLATE_NOOP("Choices", "Disable"), 0},
                                    Choice{QT_TRANSLATE_NOOP("Choices", "Enable"), 1}};

constexpr std::array openWireTable = {Choice{QT_TRANSLATE_NOOP("Choices", "Disable"), 0},
                                      Choice{QT_TRANSLATE_NOOP("Choices", "Enable"), 1},
                                      Choice{QT_TRANSLATE_NOOP("Choices", "Invalid"), 2}};

constexpr std::array filterTimeTable = {Choice{"1ms", 0}, Choice{"10ms", 1}, Choice{"20ms", 2}, Choice{"50ms", 3},
                                        Choice{"100ms", 4}};

constexpr std::array temperatureFilterTimeTable = {Choice{"100ms", 0}, Choice{"200ms", 1}, Choice{"500ms", 2},
                                                   Choice{"1s", 3}, Choice{"5s", 4}};

constexpr std::array inputRangeTable = {Choice{"0~10V", 0}, Choice{"+/-10V", 1}, Choice{"0~20mA", 2},
                                        Choice{"4~20mA", 3}};

constexpr std::array thermocoupleRangeTable = {Choice{"B", 0}, Choice{"E", 1}, Choice{"N", 2},
                                               Choice{"J", 3}, Choice{"K", 4}, Choice{"R", 5},
                                               Choice{"S", 6}, Choice{"T", 7}, Choice{"+/-80mV", 8}};

constexpr std::array resistanceRangeTable = {Choice{u8"Pt-100Ω(α=3850ppm)", 0},
                                             Choice{u8"Pt-100Ω(α=3920ppm)", 1},
                                             Choice{u8"Pt-100Ω(α=3850.55ppm)", 2},
                                             Choice{u8"Pt-100Ω(α=3916ppm)", 3},
                                             Choice{u8"Pt-100Ω(α=3902ppm)", 4},
                                             Choice{u8"Pt-500Ω(α=3850ppm)", 5},
                                             Choice{u8"Pt-500Ω(α=3920ppm)", 6},
                                             Choice{u8"Pt-500Ω(α=3850.55ppm)", 7},
                                             Choice{u8"Pt-500Ω(α=3916ppm)", 8},
                                             Choice{u8"Pt-500Ω(α=3902ppm)", 9},
                                             Choice{u8"Pt-1000Ω(α=3850ppm)", 10},
                                             Choice{u8"Pt-1000Ω(α=3920ppm)", 11},
                                             Choice{u8"Pt-1000Ω(α=3850.55ppm)", 12},
                                             Choice{u8"Pt-1000Ω(α=3916ppm)", 13},
                                             Choice{u8"Pt-1000Ω(α=3902ppm)", 14},
                                             Choice{"Cu100", 15},
                                             Choice{"NTC5K(B=3435)", 16},
                                             Choice{"NTC5K(B=3950)", 17},
                                             Choice{"NTC10K(B=3435)", 18},
                                             Choice{"NTC10K(B=3950)", 19}};

constexpr std::array directionTable = {Choice{QT_TRANSLATE_NOOP("Choices", "Upscale"), 0},
                                       Choice{QT_TRANSLATE_NOOP("Choices", "Downscale"), 1}};

constexpr std::array wiringSchemeTable = {Choice{QT_TRANSLATE_NOOP("Choices", "2-wire"), 0},
                                          Choice{QT_TRANSLATE_NOOP("Choices", "3-wire"), 1}};

constexpr std::array temperatureScaleTable = {Choice{QT_TRANSLATE_NOOP("Choices", "Degrees Celsius"), 0},
                                              Choice{QT_TRANSLATE_NOOP("Choices", "Degrees Fahrenheit"), 1}};

// The lower-case v tells this list from the input ranges; it is spelled so on purpose.
constexpr std::array outputRangeTable = {Choice{"0~10V", 0}, Choice{"+/-10v", 1}, Choice{"0~20mA", 2},
                                         Choice{"4~20mA", 3}};

constexpr std::array limitFrequencyTable = {
    Choice{"1Hz", 1},    Choice{"2Hz", 2},     Choice{"5Hz", 3},     Choice{"10Hz", 4},   Choice{"15Hz", 5},
    Choice{"25Hz", 6},   Choice{"30Hz", 7},    Choice{"50Hz", 8},    Choice{"60Hz", 9},   Choice{"100Hz", 10},
    Choice{"500Hz", 11}, Choice{"1000Hz", 12}, Choice{"2000Hz", 13}, Choice{"3000Hz", 14}};

constexpr std::array sampleFrequencyTable = {Choice{"50Hz", 1},  Choice{"60Hz", 2},   Choice{"100Hz", 3},
                                             Choice{"400Hz", 4}, Choice{"1200Hz", 5}, Choice{"2400Hz", 6}};

constexpr std::array filterModeTable = {Choice{"Default", 0}, Choice{"Disable", 1}};

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
