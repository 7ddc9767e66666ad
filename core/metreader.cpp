#include "metreader.h"

#include "baseservices.h"

#include <QFile>
#include <QVarLengthArray>

namespace {

/// Calls @p visit for each line of the type code's file until it returns false.
template <class Visitor>
void visitLines(quint32 typeCode, Visitor &&visit)
{
    // The file is read in one piece: a buffer would only copy it once more.
    QFile file(metFilePath(typeCode));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return;
    }
    QTextCodec::ConverterState state;
    const QString text = decodeMetFile(file.readAll(), QTextCodec::codecForLocale(), state);
    visitMetLines(text, [&visit](QStringView line) { return visit(classifyMetLine(line)); });
}

/// Takes in what decides whether an entry is chosen and what the next one keeps; the rest waits for complete().
class ChoosingParser {
public:
    /// As MetParser. The lines must live as long as the parser.
    const ModuleMetInfo *feed(const MetLine &line)
    {
        if (line.kind == MetLineKind::Start) {
            m_waiting.clear();
        }
        if (line.kind == MetLineKind::Key && !line.key->decides && line.key->keep == nullptr) {
            m_waiting.append(line);
            return nullptr;
        }
        return m_parser.feed(line);
    }
    /// Fills the entry that feed() gave out.
    void complete()
    {
        for (const MetLine &line : m_waiting) {
            m_parser.feed(line);
        }
    }

private:
    MetParser m_parser;
    QVarLengthArray<MetLine, 32> m_waiting;
};

} // namespace

const ModuleMetInfo *MetParser::feed(const MetLine &line)
{
    switch (line.kind) {
    case MetLineKind::Start:
        startEntry();
        return nullptr;
    case MetLineKind::Key:
        line.key->assign(m_entry, metValue(line));
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
    MetParser parser;
    visitLines(typeCode, [&](const MetLine &line) {
        if (const ModuleMetInfo *entry = parser.feed(line)) {
            entries.append(*entry);
        }
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
    ChoosingParser parser;
    visitLines(searched, [&](const MetLine &line) {
        const ModuleMetInfo *entry = parser.feed(line);
        if (entry == nullptr) {
            return true;
        }
        if (static_cast<quint32>(entry->needHwCnfgVersion) > hostVersion) {
            return false;
        }
        if (entry->objId != searched) {
            ++index;
            return true;
        }
        parser.complete();
        destination = *entry;
        destination.objId = typeCode;
        found = true;
        return false;
    });
    return found ? index : -1;
}
