#include "entrychecks.h"

#include "linetext.h"
#include "metformat.h"
#include "modulekind.h"

#include <QFileInfo>

#include <limits>

namespace {

const QLatin1String typeCodeKey("ObjID");

/// Returns the place of the key's value, or the start of the entry if it has no such key, or its end without a start.
TextPlace placeOf(QLatin1String key, const PassedPlaces &places, TextPlace end)
{
    return places.inEntry.value(key, places.start.exists() ? places.start : end);
}

} // namespace

EntryChecks::EntryChecks(const LintContext &context, QVector<Diagnostic> &diagnostics)
    : m_context(context), m_typeCode(typeCodeOfFileName(context.fileName)), m_diagnostics(diagnostics)
{
}

void EntryChecks::check(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end)
{
    if (places.start.exists()) {
        checkCarriedOver(entry, places);
    }
    checkTypeCode(entry, places, end);
    checkLookup(entry, places, end);
    checkName(entry, placeOf(QLatin1String("ObjName"), places, end));
    checkComponent(entry, placeOf(QLatin1String("ServerFile"), places, end));
    checkChannels(entry, placeOf(QLatin1String("ModuleInfo"), places, end));
}

void EntryChecks::checkCarriedOver(const ModuleMetInfo &entry, const PassedPlaces &places)
{
    for (const MetKey &key : metKeys) {
        ModuleMetInfo fresh;
        if (key.keep != nullptr && !places.inEntry.contains(key.name) && key.keep(entry, fresh)) {
            add(Rule::CarriedOver, places.start,
                QStringLiteral("the entry does not set %1 and keeps the value of line %2")
                    .arg(key.name)
                    .arg(places.everSet.value(key.name).line));
        }
    }
}

void EntryChecks::checkTypeCode(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end)
{
    if (places.start.exists() && !places.inEntry.contains(typeCodeKey)) {
        add(Rule::NoTypeCode, places.start, QStringLiteral("the entry has no ObjID and is never found"));
    } else if (m_typeCode && entry.objId != *m_typeCode) {
        add(Rule::ForeignCode, placeOf(typeCodeKey, places, end),
            QStringLiteral("type code %1 is never looked up in the file of %2")
                .arg(hexadecimal(entry.objId), hexadecimal(*m_typeCode)));
    }
}

// A lookup finds the first entry of the type code, unless an earlier entry needs a newer host.
void EntryChecks::checkLookup(const ModuleMetInfo &entry, const PassedPlaces &places, TextPlace end)
{
    const bool matches = !m_typeCode || entry.objId == *m_typeCode;
    const bool isForHost = static_cast<quint32>(entry.needHwCnfgVersion) <= m_context.hostVersion;
    if (m_found.exists()) {
        if (m_typeCode && matches) {
            add(Rule::DuplicateEntry, placeOf(typeCodeKey, places, end),
                QStringLiteral("the entry is never found: the one that ends in line %1 has the same type code")
                    .arg(m_found.line));
        }
    } else if (!isForHost) {
        m_hiding = m_hiding.exists() ? m_hiding : placeOf(QLatin1String("NeedHwCnfgVersion"), places, end);
    } else if (matches) {
        m_found = end;
        if (m_hiding.exists()) {
            add(Rule::HidesLater, m_hiding,
                QStringLiteral("the entry needs a host version above %1 and hides the entry that ends in line %2")
                    .arg(m_context.hostVersion)
                    .arg(end.line));
        }
    }
}

void EntryChecks::checkName(const ModuleMetInfo &entry, TextPlace place)
{
    constexpr int maximum = std::numeric_limits<qint8>::max(); // the length byte of the name has a sign
    const int size = m_context.encoding->fromUnicode(entry.objName).size();
    if (size > maximum) {
        add(Rule::LongName, place,
            QStringLiteral("the name has %1 bytes: a saved module with more than %2 is not restored as it was")
                .arg(size)
                .arg(maximum));
    }
}

void EntryChecks::checkComponent(const ModuleMetInfo &entry, TextPlace place)
{
    if (m_context.componentFolder.isEmpty()) {
        return;
    }
    const QFileInfo component(m_context.componentFolder % QLatin1Char('/') % entry.serverFile);
    const QString name = quoted(entry.serverFile);
    if (entry.serverFile.contains(QChar(QChar::Null)) || !component.exists()) {
        add(Rule::MissingComponent, place,
            QStringLiteral("no component file %1: the module cannot be created").arg(name));
    } else if (component.isDir()) {
        add(Rule::NoServerFile, place,
            QStringLiteral("ServerFile %1 is a folder: the module cannot be created").arg(name));
    }
}

void EntryChecks::checkChannels(const ModuleMetInfo &entry, TextPlace place)
{
    const ModuleKind &kind = moduleKind(entry.objId);
    if (kind.family == ModuleFamily::Plain) {
        return;
    }
    const QString type = hexadecimal(entry.objId);
    if (entry.moduleInfo == 0) {
        add(Rule::NoModuleInfo, place, QStringLiteral("moduleInfo 0: a module of type %1 cannot be created").arg(type));
        return;
    }
    constexpr int maximum = std::numeric_limits<quint8>::max();
    const qint32 inputs = kind.input.channelCount(entry.moduleInfo);
    const qint32 outputs = kind.output.channelCount(entry.moduleInfo);
    for (const qint32 count : {inputs, outputs}) {
        if (count < 0 || count > maximum) {
            add(Rule::ChannelCount, place,
                QStringLiteral("the host counts %1 channels; a module has 0 to %2").arg(count).arg(maximum));
        }
    }
    if (inputs == 0 && outputs == 0) {
        add(Rule::NoChannels, place,
            QStringLiteral("moduleInfo %1 gives a module of type %2 no channels")
                .arg(hexadecimal(entry.moduleInfo), type));
    }
}
