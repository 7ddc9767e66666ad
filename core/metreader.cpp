#include "metreader.h"

#include "baseservices.h"

#include <QFile>

namespace {

/// Calls @p visit for each entry of the type code's file until it returns false.
template <class Visitor>
void visitEntries(quint32 typeCode, Visitor &&visit)
{
    // The file is read in one piece: a buffer would only copy it once more.
    QFile file(metFilePath(typeCode));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return;
    }
    QTextCodec::ConverterState state;
    const QString text = decodeMetFile(file.readAll(), QTextCodec::codecForLocale(), state);
    MetParser parser;
    visitMetLines(text, [&parser, &visit](QStringView line) {
        const ModuleMetInfo *entry = parser.feed(classifyMetLine(line));
        return entry == nullptr || visit(*entry);
    });
}

} // namespace

const ModuleMetInfo *MetParser::feed(const MetLine &line)
{
    switch (line.kind) {
    case MetLineKind::Start:
        startEntry();
        return nullptr;
    case MetLineKind::Key:
        line.key->assign(m_entry, metValue(line.text));
        return nullptr;
    case MetLineKind::End:
        return &m_entry;
    default:
        return nullptr;
    }
}

void MetParser::startEntry()
{
    ModuleMetInfo fresh;
    for (const MetKey &key : metKeys) {
        if (key.keep != nullptr) {
            key.keep(m_entry, fresh);
        }
    }
    m_entry = fresh;
}

quint32 searchedTypeCode(quint32 typeCode)
{
    return typeCode == 4 ? 3 : typeCode;
}

QString metFileName(quint32 typeCode)
{
    return QStringLiteral("hw%1.met").arg(QString::number(typeCode, 16).toUpper(), 8, QLatin1Char('0'));
}

QString metFilePath(quint32 typeCode)
{
    return getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription) % metFileName(typeCode);
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
    const quint32 searched = searchedTypeCode(typeCode);
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
