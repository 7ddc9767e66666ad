#include "metreader.h"

#include "baseservices.h"

#include <QFile>
#include <QVarLengthArray>

#include <fcntl.h>

namespace {

/// Returns the text of the type code's file; empty if the file cannot be read.
QString readMetFile(quint32 typeCode)
{
    // QFile alone would wait for the writer of a pipe, and asking for the kind of the file first costs a system call
    // more.
    const int descriptor =
        open(QFile::encodeName(metFilePath(typeCode)).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    // Unbuffered, because the file is read in one piece. A pipe or a device may have no end.
    QFile file;
    if (descriptor < 0 ||
        !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle) ||
        file.isSequential() || file.size() > maximumMetFileSize) {
        return {};
    }
    QTextCodec::ConverterState state;
    return decodeMetFile(file.readAll(), QTextCodec::codecForLocale(), state);
}

/// Returns true if neither the choice of an entry nor the next entry depends on the line.
bool canWait(const MetLine &line)
{
    return line.kind == MetLineKind::Key && !line.key->decides && line.key->keep == nullptr;
}

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
    const QString text = readMetFile(typeCode);
    QVector<ModuleMetInfo> entries;
    MetParser parser;
    QStringView rest(text);
    while (const auto line = takeMetLine(rest)) {
        if (const ModuleMetInfo *entry = parser.feed(classifyMetLine(*line))) {
            entries.append(*entry);
        }
    }
    return entries;
}

qint32 lookUpMetInfo(quint32 typeCode, ModuleMetInfo &destination)
{
    const quint32 searched = searchedTypeCode(typeCode);
    const QString text = readMetFile(searched);
    const quint32 hostVersion = getAppVerNum();
    qint32 index = 0;
    MetParser parser;
    QVarLengthArray<MetLine, 32> waiting; // for the entry to be chosen
    QStringView rest(text);
    while (const auto taken = takeMetLine(rest)) {
        const MetLine line = classifyMetLine(*taken);
        if (canWait(line)) {
            waiting.append(line);
            continue;
        }
        if (line.kind == MetLineKind::Start) {
            waiting.clear();
        }
        const ModuleMetInfo *entry = parser.feed(line);
        if (entry == nullptr) {
            continue;
        }
        if (static_cast<quint32>(entry->needHwCnfgVersion) > hostVersion) {
            return -1;
        }
        if (entry->objId != searched) {
            ++index;
            continue;
        }
        for (const MetLine &waitingLine : waiting) {
            parser.feed(waitingLine);
        }
        destination = *entry;
        destination.objId = typeCode;
        return index;
    }
    return -1;
}
