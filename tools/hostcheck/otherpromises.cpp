#include "hostfunctions.h"
#include "promises.h"

#include <QDir>

#include <cstring>
#include <limits>

namespace {

QString hex(quint32 value)
{
    return QString::number(value, 16).rightJustified(8, QLatin1Char('0'));
}

void checkSymbols(const Owners & /*owners*/)
{
    const QStringList missing = missingSymbols();
    expect(missing.isEmpty(), QStringLiteral("missing: ") + missing.join(QStringLiteral("; ")));
}

void checkChannelCounts(const Owners & /*owners*/)
{
    struct Count {
        const char *name;
        const HostFunction<decltype(::getModuleDINum)> &function;
        unsigned shift; // of the byte in moduleInfo
    };
    const Count counts[] = {{"getModuleDINum", host::getModuleDINum, 0},
                            {"getModuleDQNum", host::getModuleDQNum, 8},
                            {"getModuleAINum", host::getModuleAINum, 16},
                            {"getModuleAQNum", host::getModuleAQNum, 24}};
    for (const quint32 moduleInfo : {0x00000010U, 0x00000C0AU, 0x00080000U, 0x02040000U, 0x01020304U, 0xFF00FF00U}) {
        for (const auto &[name, function, shift] : counts) {
            const auto expected = static_cast<qint32>((moduleInfo >> shift) & 0xFFU);
            const qint32 found = function(moduleInfo);
            expect(found == expected, QStringLiteral("%1(0x%2) returned %3 instead of %4")
                                          .arg(QLatin1String(name), hex(moduleInfo))
                                          .arg(found)
                                          .arg(expected));
        }
    }
}

void checkComponentPath(const Owners & /*owners*/)
{
    for (const HwcnfgComponent component : {HwcnfgComponent::ModuleDescription, HwcnfgComponent::ModuleComponent}) {
        const QString path = host::getHwcnfgComponentPath(component);
        expect(QDir::fromNativeSeparators(path).endsWith(QLatin1Char('/')),
               QStringLiteral("getHwcnfgComponentPath(%1) returned \"%2\"").arg(static_cast<int>(component)).arg(path));
    }
}

void checkAppVersion(const Owners & /*owners*/)
{
    constexpr quint32 minimum = 2000; // what an entry without NeedHwCnfgVersion needs
    const quint32 version = host::getAppVerNum();
    expect(version >= minimum, QStringLiteral("getAppVerNum returned %1").arg(version));
}

void checkNumberBytes(const Owners & /*owners*/)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        const char *call;
        QByteArray bytes;
        const char *expected;
    } rows[] = {
        {"intToByteArray(0)", host::intToByteArray(0), "00000000"},
        {"intToByteArray(16909060)", host::intToByteArray(0x01020304), "01020304"},
        {"intToByteArray(-2)", host::intToByteArray(-2), "fffffffe"},
        {"shortToByteArray(258)", host::shortToByteArray(0x0102), "0102"},
        {"shortToByteArray(-3)", host::shortToByteArray(-3), "fffd"},
        {"ushortToByteArray(258)", host::ushortToByteArray(0x0102), "0102"},
        {"ushortToByteArray(65534)", host::ushortToByteArray(0xFFFE), "fffe"},
        {"floatToByteArray(1.23)", host::floatToByteArray(1.23F), "3f9d70a4"},
        {"floatToByteArray(-0.0)", host::floatToByteArray(-0.0F), "80000000"},
        {"floatToByteArray(1.4e-45)", host::floatToByteArray(std::numeric_limits<float>::denorm_min()), "00000001"},
        {"floatToByteArray(NaN)", host::floatToByteArray(nan), "7fc00000"},
    };
    for (const auto &[call, bytes, expected] : rows) {
        expect(bytes.toHex() == expected,
               QStringLiteral("%1 returned %2 instead of %3")
                   .arg(QLatin1String(call), QString::fromLatin1(bytes.toHex()), QLatin1String(expected)));
    }
}

void checkBytesToFloat(const Owners & /*owners*/)
{
    for (const char *digits : {"3f9d70a4", "80000000", "00000001", "7fc00000"}) {
        // As in a block: another byte follows instead of a terminating null.
        const QByteArray block = QByteArray::fromHex(digits) + '\x01';
        const float number = host::byteArrayToFloat(QByteArray::fromRawData(block.constData(), 4));
        quint32 bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        expect(hex(bits) == QLatin1String(digits), QStringLiteral("byteArrayToFloat of the bytes %1 returned %2")
                                                       .arg(QLatin1String(digits))
                                                       .arg(static_cast<double>(number)));
    }
}

void checkBytesToText(const Owners & /*owners*/)
{
    for (const QByteArray &bytes : {QByteArray(), QByteArray(1, 0), QByteArray::fromHex("0001207f80ff")}) {
        const QString text = host::byteArryDataToString(bytes, QString());
        expect(text.toLower() == QString::fromLatin1(bytes.toHex()),
               QStringLiteral("byteArryDataToString returned \"%1\" for the bytes %2")
                   .arg(text, QString::fromLatin1(bytes.toHex())));
    }
}

void checkHelpKeyword(const Owners & /*owners*/)
{
    const QString english = QStringLiteral("Digital module");
    const QString local = QString::fromUtf8("\xE6\x95\xB0\xE5\xAD\x97\xE9\x87\x8F\xE6\xA8\xA1\xE5\x9D\x97");
    const QString keyword = host::helpKeyWord(english, local);
    expect(keyword == english || keyword == local,
           QStringLiteral("helpKeyWord returned \"%1\", which is neither of its arguments").arg(keyword));
}

} // namespace

void expect(bool isKept, const QString &text)
{
    if (!isKept) {
        throw BrokenPromise{text};
    }
}

QVector<Promise> otherPromises()
{
    return {
        {"symbols", "The libraries have all functions that the plug-in imports", {}, checkSymbols},
        {"channel-counts", "Each byte of moduleInfo is one channel count: AQ, AI, DQ, DI", {}, checkChannelCounts},
        {"component-path", "getHwcnfgComponentPath returns a path that ends in a separator", {}, checkComponentPath},
        {"app-version", "getAppVerNum returns at least 2000", {}, checkAppVersion},
        {"number-bytes", "Numbers become 2 or 4 bytes, the most significant first", {}, checkNumberBytes},
        {"bytes-float", "byteArrayToFloat returns the number with these 4 bytes", {}, checkBytesToFloat},
        {"bytes-text", "byteArryDataToString returns hexadecimal digits", {}, checkBytesToText},
        {"help-keyword", "helpKeyWord returns one of its two texts", {}, checkHelpKeyword},
    };
}
