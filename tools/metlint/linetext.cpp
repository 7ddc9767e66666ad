#include "linetext.h"

namespace {

constexpr int quotedLength = 40;

} // namespace

QString quoted(QStringView text)
{
    QString shown = text.left(quotedLength).toString();
    for (QChar &character : shown) {
        if (!character.isPrint() && !character.isSurrogate()) {
            character = QLatin1Char('?');
        }
    }
    return QLatin1Char('"') % shown % QLatin1String(text.size() > quotedLength ? "...\"" : "\"");
}

QString hexadecimal(quint32 number)
{
    return QStringLiteral("0x") % QString::number(number, 16).toUpper();
}

int indexOfText(QStringView text)
{
    const int index = firstIndex(text, [](QChar character) { return !character.isSpace(); });
    return index < 0 ? static_cast<int>(text.size()) : index;
}

QString asSeen(QStringView text)
{
    static const QString alike = QStringLiteral("АВЕКМНОРСТХІЈЅаеорсухіјѕΑΒΕΖΗΙΚΜΝΟΡΤΥΧο");
    static const QString ascii = QStringLiteral("ABEKMHOPCTXIJSaeopcyxijsABEZHIKMNOPTYXo");
    QString seen;
    for (const QChar character : text.toString().normalized(QString::NormalizationForm_KC)) {
        if (character.category() == QChar::Other_Format) {
            continue;
        }
        const int index = alike.indexOf(character);
        seen += index < 0 ? character : ascii.at(index);
    }
    return seen.trimmed();
}

bool isNotAscii(QChar character)
{
    return character.unicode() >= 0x80;
}

bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case '\r':
    case '\v':
    case '\f':
    case 0x85:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control && character != QLatin1Char('\t') && !isLineBreak(character);
}
