#include "metreader.h"

#include "baseservices.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <iterator>

namespace {

template <class Member>
struct MemberType;
template <class Type>
struct MemberType<Type ModuleMetInfo::*> {
    using type = Type;
};
template <auto Member>
using MemberTypeOf = typename MemberType<decltype(Member)>::type;

// Text that is no number reads as 0; what exceeds the field is cut off.
template <class Number>
Number parseNumber(const QString &text, int base)
{
    return static_cast<Number>(text.toUInt(nullptr, base));
}

template <auto Member>
void assignText(ModuleMetInfo &entry, const QString &value)
{
    entry.*Member = value;
}

template <auto Member, int Base>
void assignNumber(ModuleMetInfo &entry, const QString &value)
{
    entry.*Member = parseNumber<MemberTypeOf<Member>>(value, Base);
}

template <auto Member>
void assignFlag(ModuleMetInfo &entry, const QString &value)
{
    entry.*Member = parseNumber<quint32>(value, 10) != 0;
}

template <auto Member>
void assignBytes(ModuleMetInfo &entry, const QString &value)
{
    auto &bytes = entry.*Member;
    const QStringList items = value.split(QLatin1Char(','));
    const auto count = std::min(bytes.size(), static_cast<std::size_t>(items.size()));
    std::transform(items.begin(), items.begin() + static_cast<int>(count), bytes.begin(),
                   [](const QString &item) { return parseNumber<quint8>(item, 16); });
}

void assignVersion(ModuleMetInfo &entry, const QString &value)
{
    entry.fwVersion = parseNumber<quint8>(QString(value).remove(QLatin1Char('.')), 10);
}

void appendNotSupported(ModuleMetInfo &entry, const QString &value)
{
    const QStringList items = value.split(QLatin1Char(','));
    for (const QString &item : items) {
        entry.notSupported.append(parseNumber<quint32>(item, 16));
    }
}

void appendSampPeriods(ModuleMetInfo &entry, const QString &value)
{
    entry.sampPeriodList += value.split(QLatin1Char(','));
}

struct MetKey {
    QLatin1String name;
    void (*assign)(ModuleMetInfo &entry, const QString &value);
};

// In test order: keys match as prefixes, so an earlier key wins over a longer one behind it.
const MetKey metKeys[] = {
    {QLatin1String("MetVersion"), assignText<&ModuleMetInfo::metVersion>},
    {QLatin1String("NeedHwCnfgVersion"), assignNumber<&ModuleMetInfo::needHwCnfgVersion, 10>},
    {QLatin1String("ObjName"), assignText<&ModuleMetInfo::objName>},
    {QLatin1String("MLFB"), assignText<&ModuleMetInfo::mlfb>},
    {QLatin1String("ObjID"), assignNumber<&ModuleMetInfo::objId, 16>},
    {QLatin1String("ParentObjID"), assignNumber<&ModuleMetInfo::parentObjId, 16>},
    {QLatin1String("BaseType"), assignNumber<&ModuleMetInfo::baseType, 10>},
    {QLatin1String("NumIOModules"), assignNumber<&ModuleMetInfo::numIOModules, 10>},
    {QLatin1String("NotSupported"), appendNotSupported},
    {QLatin1String("ServerFile"), assignText<&ModuleMetInfo::serverFile>},
    {QLatin1String("IsCatEntry"), assignFlag<&ModuleMetInfo::isCatEntry>},
    {QLatin1String("ModuleInfo"), assignNumber<&ModuleMetInfo::moduleInfo, 16>},
    {QLatin1String("IntSupported"), assignBytes<&ModuleMetInfo::intSupported>},
    {QLatin1String("IntEnableTbl"), assignBytes<&ModuleMetInfo::intEnableTbl>},
    {QLatin1String("FwVersion"), assignVersion},
    {QLatin1String("BuffCnfg"), assignBytes<&ModuleMetInfo::buffCnfg>},
    {QLatin1String("SyncCnfg"), assignBytes<&ModuleMetInfo::syncCnfg>},
    {QLatin1String("SupportGrpCnfg"), assignFlag<&ModuleMetInfo::supportGrpCnfg>},
    {QLatin1String("SampPeriodGrpCnfg"), assignFlag<&ModuleMetInfo::sampPeriodGrpCnfg>},
    {QLatin1String("SampPeriodList"), appendSampPeriods},
    {QLatin1String("ReservBytes"), assignBytes<&ModuleMetInfo::reservBytes>},
    {QLatin1String("SupportEtherCAT"), assignNumber<&ModuleMetInfo::supportEtherCAT, 10>},
    {QLatin1String("SupportCANopen"), assignFlag<&ModuleMetInfo::supportCANopen>},
    {QLatin1String("supportRack"), assignNumber<&ModuleMetInfo::supportRack, 10>},
    {QLatin1String("SupportHSC"), assignNumber<&ModuleMetInfo::supportHSC, 10>},
    {QLatin1String("softCtrlRemote"), assignFlag<&ModuleMetInfo::softCtrlRemote>},
};

bool isComment(const QString &line)
{
    const auto *const first =
        std::find_if(line.begin(), line.end(), [](QChar character) { return !character.isSpace(); });
    return first != line.end() && *first == QLatin1Char(';');
}

bool begins(const QString &line, QLatin1String prefix)
{
    return line.startsWith(prefix, Qt::CaseInsensitive);
}

/// Calls @p visit for each entry of the type code's file until it returns false.
template <class Visitor>
void visitEntries(quint32 typeCode, Visitor &&visit)
{
    QFile file(metFilePath(typeCode));
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    QTextStream stream(&file);
    MetParser parser;
    QString line;
    while (stream.readLineInto(&line)) {
        const ModuleMetInfo *entry = parser.feed(line);
        if (entry != nullptr && !visit(*entry)) {
            return;
        }
    }
}

} // namespace

const ModuleMetInfo *MetParser::feed(const QString &line)
{
    if (isComment(line)) {
        return nullptr;
    }
    if (begins(line, QLatin1String("[MODULE START]"))) {
        startEntry();
        return nullptr;
    }
    const auto *key = std::find_if(std::begin(metKeys), std::end(metKeys),
                                   [&line](const MetKey &candidate) { return begins(line, candidate.name); });
    if (key != std::end(metKeys)) {
        // Without a "=" the whole line is the value.
        key->assign(m_entry, line.mid(line.indexOf(QLatin1Char('=')) + 1).simplified());
        return nullptr;
    }
    return begins(line, QLatin1String("[END]")) ? &m_entry : nullptr;
}

// Intended: what is carried over here keeps the value of the entry before; files in the field rely on it.
void MetParser::startEntry()
{
    ModuleMetInfo fresh;
    fresh.memoryOwner = m_entry.memoryOwner;
    fresh.objText = m_entry.objText;
    fresh.comment = m_entry.comment;
    fresh.inMap = m_entry.inMap;
    fresh.outMap = m_entry.outMap;
    fresh.supportGrpCnfg = m_entry.supportGrpCnfg;
    fresh.sampPeriodGrpCnfg = m_entry.sampPeriodGrpCnfg;
    fresh.sampPeriodList = m_entry.sampPeriodList;
    fresh.reservBytes = m_entry.reservBytes;
    fresh.supportEtherCAT = m_entry.supportEtherCAT;
    fresh.supportRack = m_entry.supportRack;
    m_entry = fresh;
}

QString metFilePath(quint32 typeCode)
{
    return getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription) %
           QStringLiteral("hw%1.met").arg(QString::number(typeCode, 16).toUpper(), 8, QLatin1Char('0'));
}

QVector<ModuleMetInfo> readMetEntries(quint32 typeCode)
{
    QVector<ModuleMetInfo> entries;
    visitEntries(typeCode, [&entries](const ModuleMetInfo &entry) {
        entries.append(entry);
        return true;
    });
    return entries;
}

qint32 lookUpMetInfo(quint32 typeCode, ModuleMetInfo &destination)
{
    const quint32 searched = typeCode == 4 ? 3 : typeCode;
    const quint32 hostVersion = getAppVerNum();
    qint32 index = 0;
    bool found = false;
    visitEntries(searched, [&](const ModuleMetInfo &entry) {
        if (static_cast<quint32>(entry.needHwCnfgVersion) > hostVersion) {
            return false;
        }
        if (entry.objId != searched) {
            ++index;
            return true;
        }
        destination = entry;
        destination.objId = typeCode;
        found = true;
        return false;
    });
    return found ? index : -1;
}
