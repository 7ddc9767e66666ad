#include "fieldtexts.h"

#include "simulatedbase.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FieldTexts)
};

/// How a parameter's value is shown.
enum class Shown { Choice, Number, Switch, FirstWord };

struct Title {
    const char *name; ///< last part of the field's name
    const char *title;
    Shown shown = Shown::Choice;
};

constexpr Title parameterTitles[] = {
    {"enable", QT_TRANSLATE_NOOP("FieldTexts", "Channel")},
    {"inputRange", QT_TRANSLATE_NOOP("FieldTexts", "Range")},
    {"range", QT_TRANSLATE_NOOP("FieldTexts", "Range")},
    {"filterTime", QT_TRANSLATE_NOOP("FieldTexts", "Filter time")},
    {"openWire", QT_TRANSLATE_NOOP("FieldTexts", "Open wire")},
    {"direction", QT_TRANSLATE_NOOP("FieldTexts", "Direction")},
    {"coldJunction", QT_TRANSLATE_NOOP("FieldTexts", "Cold junction")},
    {"wiringScheme", QT_TRANSLATE_NOOP("FieldTexts", "Wiring")},
    {"temperatureScale", QT_TRANSLATE_NOOP("FieldTexts", "Temperature scale")},
    {"filterOn", QT_TRANSLATE_NOOP("FieldTexts", "Filter"), Shown::Switch},
    {"samples", QT_TRANSLATE_NOOP("FieldTexts", "Samples"), Shown::FirstWord},
    {"deadband", QT_TRANSLATE_NOOP("FieldTexts", "Deadband"), Shown::Number},
    {"freezeLast", QT_TRANSLATE_NOOP("FieldTexts", "Freeze in STOP"), Shown::Switch},
    {"stopValue", QT_TRANSLATE_NOOP("FieldTexts", "Value in STOP"), Shown::Number},
    {"sensitivity", QT_TRANSLATE_NOOP("FieldTexts", "Sensitivity"), Shown::Number},
    {"limitFreq", QT_TRANSLATE_NOOP("FieldTexts", "Limit frequency")},
    {"filterDepth", QT_TRANSLATE_NOOP("FieldTexts", "Filter depth"), Shown::Number},
    {"subMax", QT_TRANSLATE_NOOP("FieldTexts", "Sub max"), Shown::Number},
    {"subMin", QT_TRANSLATE_NOOP("FieldTexts", "Sub min"), Shown::Number},
    {"filterMode", QT_TRANSLATE_NOOP("FieldTexts", "Filter mode")},
    {"sampleFreq", QT_TRANSLATE_NOOP("FieldTexts", "Sample frequency")},
    {"bootClear", QT_TRANSLATE_NOOP("FieldTexts", "Boot clear"), Shown::Number},
};

constexpr Title otherTitles[] = {
    {"header.objName", QT_TRANSLATE_NOOP("FieldTexts", "Name")},
    {"header.comment", QT_TRANSLATE_NOOP("FieldTexts", "Comment")},
    {"header.rackId", QT_TRANSLATE_NOOP("FieldTexts", "Rack")},
    {"header.slotId", QT_TRANSLATE_NOOP("FieldTexts", "Slot")},
    {"header.inMap.start", QT_TRANSLATE_NOOP("FieldTexts", "Input address")},
    {"header.inMap.length", QT_TRANSLATE_NOOP("FieldTexts", "Input length")},
    {"header.outMap.start", QT_TRANSLATE_NOOP("FieldTexts", "Output address")},
    {"header.outMap.length", QT_TRANSLATE_NOOP("FieldTexts", "Output length")},
    {"digitalOutput.dqMode", QT_TRANSLATE_NOOP("FieldTexts", "Outputs in STOP")},
    {"plcType", QT_TRANSLATE_NOOP("FieldTexts", "Controller")},
    {"title", QT_TRANSLATE_NOOP("FieldTexts", "Title")},
    {"author", QT_TRANSLATE_NOOP("FieldTexts", "Author")},
    {"revision", QT_TRANSLATE_NOOP("FieldTexts", "Revision")},
    {"notes", QT_TRANSLATE_NOOP("FieldTexts", "Notes")},
};

/// Entries of lists: "%1" is the number in brackets.
constexpr Title listTitles[] = {
    {"analogInput", QT_TRANSLATE_NOOP("FieldTexts", "Input %1")},
    {"analogOutput", QT_TRANSLATE_NOOP("FieldTexts", "Output %1")},
    {"weighing", QT_TRANSLATE_NOOP("FieldTexts", "Input %1")},
    {"digitalInput.diFilter", QT_TRANSLATE_NOOP("FieldTexts", "Input filter, row %1")},
    {"digitalOutput.dqOutTbl", QT_TRANSLATE_NOOP("FieldTexts", "States in STOP, byte %1")},
};

template <std::size_t Size>
const Title *find(const Title (&titles)[Size], const QString &name)
{
    const Title *found = std::find_if(std::begin(titles), std::end(titles),
                                      [&](const Title &title) { return name == QLatin1String(title.name); });
    return found == std::end(titles) ? nullptr : found;
}

const Title *findParameter(const QString &fieldName)
{
    const int bracket = fieldName.indexOf(QLatin1String("]."));
    return bracket < 0 ? nullptr : find(parameterTitles, fieldName.mid(bracket + 2));
}

QString plainText(const QVariant &value)
{
    return value.type() == QVariant::ByteArray ? QString::fromLatin1(value.toByteArray().toHex(' ')) : value.toString();
}

} // namespace

QString controllerName(quint32 plcType)
{
    for (const simulatedhost::PlcType &known : simulatedhost::plcTypes()) {
        if (known.id == plcType) {
            return known.name;
        }
    }
    return QString::number(plcType);
}

QString parameterTitle(const QString &fieldName)
{
    const Title *found = findParameter(fieldName);
    return found == nullptr ? QString() : Texts::tr(found->title);
}

QString parameterText(const blockdecoder::Field &field)
{
    const Title *found = findParameter(field.name);
    switch (found == nullptr ? Shown::Number : found->shown) {
    case Shown::Switch:
        return field.value.toInt() == 1 ? Texts::tr("on") : Texts::tr("off");
    case Shown::Choice:
    case Shown::FirstWord:
        if (field.meaning == QLatin1String("no such choice")) {
            return QStringLiteral("(%1)").arg(field.value.toInt());
        }
        return found->shown == Shown::Choice ? field.meaning : field.meaning.section(QLatin1Char(' '), 0, 0);
    case Shown::Number:
        break;
    }
    return field.value.type() == QVariant::Double ? QString::number(field.value.toDouble(), 'g', 7)
                                                  : plainText(field.value);
}

QString fieldTitle(const QString &fieldName)
{
    if (const Title *other = find(otherTitles, fieldName)) {
        return Texts::tr(other->title);
    }
    const int open = fieldName.indexOf(QLatin1Char('['));
    const int close = fieldName.indexOf(QLatin1Char(']'));
    const Title *list = open < 0 ? nullptr : find(listTitles, fieldName.left(open));
    if (list == nullptr) {
        return fieldName;
    }
    const QString entry = Texts::tr(list->title).arg(fieldName.mid(open + 1, close - open - 1));
    const QString parameter = parameterTitle(fieldName);
    return parameter.isEmpty() ? entry : entry + QStringLiteral(": ") + parameter;
}

QString fieldValueText(const blockdecoder::Field &field)
{
    if (findParameter(field.name) != nullptr) {
        return parameterText(field);
    }
    if (field.name == QLatin1String("plcType")) {
        return controllerName(field.value.toUInt());
    }
    const QString value = plainText(field.value);
    return field.meaning.isEmpty() ? value : QStringLiteral("%1 (%2)").arg(value, field.meaning);
}
