// The module descriptions have a second parser here, because the workbench sees the plug-in through its exports only.
// This one reads four keys of the first entry and validates nothing; the plug-in decides whether a type can be used.
#include "catalog.h"

#include "baseservices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Catalog)
};

/// The text after the first "=" of a line that begins with @p key; a null string for any other line.
QString valueOf(const QString &line, QLatin1String key)
{
    if (!line.startsWith(key, Qt::CaseInsensitive)) {
        return {};
    }
    return line.mid(line.indexOf(QLatin1Char('=')) + 1).simplified();
}

/// Temperature modules are identified by their type codes, because their description files have the base type of other
/// analog modules.
CatalogFamily familyOf(int baseType, quint32 typeCode)
{
    switch (baseType) {
    case 1:
    case 2:
    case 3:
        return typeCode == 13396 || typeCode == 13397 ? CatalogFamily::Temperature : CatalogFamily::Analog;
    case 4:
    case 5:
    case 6:
        return CatalogFamily::Digital;
    case 7:
        return CatalogFamily::Weighing;
    default:
        return CatalogFamily::Other;
    }
}

/// Fills all members except the type code from the first entry of a description file.
void readTexts(const QString &path, CatalogEntry &entry)
{
    QFile file(path);
    // Opening a pipe waits for a writer, and a device may have no end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return;
    }
    QTextStream stream(&file);
    QString line;
    while (stream.readLineInto(&line) && !line.startsWith(QLatin1String("[END]"), Qt::CaseInsensitive)) {
        if (const QString name = valueOf(line, QLatin1String("ObjName")); !name.isNull()) {
            entry.name = name;
        } else if (const QString orderNumber = valueOf(line, QLatin1String("MLFB")); !orderNumber.isNull()) {
            entry.orderNumber = orderNumber;
        } else if (const QString component = valueOf(line, QLatin1String("ServerFile")); !component.isNull()) {
            entry.componentFile = component;
        } else if (const QString baseType = valueOf(line, QLatin1String("BaseType")); !baseType.isNull()) {
            entry.family = familyOf(baseType.toInt(), entry.typeCode);
        }
    }
}

} // namespace

QString descriptionFileName(quint32 typeCode)
{
    return QStringLiteral("hw%1.met").arg(QString::number(typeCode, 16).toUpper(), 8, QLatin1Char('0'));
}

std::vector<CatalogEntry> readCatalog()
{
    const QDir folder(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription));
    std::vector<CatalogEntry> entries;
    for (const QString &file : folder.entryList({QStringLiteral("hw*.met")}, QDir::Files)) {
        CatalogEntry entry;
        entry.typeCode = file.mid(2, 8).toUInt(nullptr, 16);
        if (file != descriptionFileName(entry.typeCode)) {
            continue;
        }
        readTexts(folder.filePath(file), entry);
        if (!entry.name.isEmpty()) {
            entries.push_back(entry);
        }
    }
    std::sort(entries.begin(), entries.end(),
              [](const CatalogEntry &a, const CatalogEntry &b) { return a.typeCode < b.typeCode; });
    return entries;
}

QString catalogProblem(quint32 typeCode)
{
    const QString name = descriptionFileName(typeCode);
    const QString path = getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription) + name;
    if (!QFileInfo(path).isFile()) {
        return Texts::tr("The catalog has no description file %1 for type %2.").arg(name).arg(typeCode);
    }
    CatalogEntry entry;
    readTexts(path, entry);
    if (!QFileInfo(getHwcnfgComponentPath(HwcnfgComponent::ModuleComponent) + entry.componentFile).isFile()) {
        return Texts::tr("The component file %1 of \"%2\" (type %3) is missing.")
            .arg(entry.componentFile, entry.name, QString::number(typeCode));
    }
    return {};
}

QString typeProblem(quint32 typeCode)
{
    const QString problem = catalogProblem(typeCode);
    return problem.isEmpty()
               ? Texts::tr("The description file of type %1 is malformed or needs a newer host.").arg(typeCode)
               : problem;
}

const CatalogEntry *findEntry(const std::vector<CatalogEntry> &catalog, quint32 typeCode)
{
    const auto found =
        std::lower_bound(catalog.begin(), catalog.end(), typeCode,
                         [](const CatalogEntry &entry, quint32 wanted) { return entry.typeCode < wanted; });
    return found == catalog.end() || found->typeCode != typeCode ? nullptr : &*found;
}

QString familyName(CatalogFamily family)
{
    switch (family) {
    case CatalogFamily::Analog:
        return Texts::tr("Analog modules");
    case CatalogFamily::Temperature:
        return Texts::tr("TC/RTD modules");
    case CatalogFamily::Digital:
        return Texts::tr("Digital modules");
    case CatalogFamily::Weighing:
        return Texts::tr("Weighing modules");
    case CatalogFamily::Other:
        break;
    }
    return Texts::tr("Other modules");
}
