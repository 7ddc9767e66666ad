#include "imagerangetext.h"

#include <QCoreApplication>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(MemoryAreas)
};

} // namespace

int rangeBytes(const IoMap &range)
{
    return static_cast<int>(bytesOfChannels(range.unit, range.count));
}

QString areaName(quint8 area)
{
    switch (static_cast<VarArea>(area)) {
    case VarArea::AnalogInput:
        return QStringLiteral("AI");
    case VarArea::AnalogOutput:
        return QStringLiteral("AQ");
    case VarArea::DigitalInput:
        return QStringLiteral("I");
    case VarArea::DigitalOutput:
        return QStringLiteral("Q");
    case VarArea::Variable:
        return QStringLiteral("V");
    case VarArea::None:
        break;
    }
    return QString::number(area);
}

QString areaTitle(VarArea area)
{
    switch (area) {
    case VarArea::AnalogInput:
        return Texts::tr("Analog inputs");
    case VarArea::AnalogOutput:
        return Texts::tr("Analog outputs");
    case VarArea::DigitalInput:
        return Texts::tr("Digital inputs");
    case VarArea::DigitalOutput:
        return Texts::tr("Digital outputs");
    case VarArea::Variable:
        return Texts::tr("Variables");
    case VarArea::None:
        break;
    }
    return {};
}

QString rangeText(const IoMap &range)
{
    return rangeText(range.area, range.start, rangeBytes(range));
}

QString rangeText(quint8 area, int start, int length)
{
    if (length == 0) {
        return {};
    }
    if (length == 1) {
        return QStringLiteral("%1 %2").arg(areaName(area)).arg(start);
    }
    return QStringLiteral("%1 %2..%3").arg(areaName(area)).arg(start).arg(start + length - 1);
}
