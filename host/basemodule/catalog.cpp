#include "baseservices.h"
#include "faults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

constexpr quint32 appVersion = 2300;

/// Returns one of the four counts in moduleInfo. From the highest byte to the lowest: AQ, AI, DQ, DI.
constexpr qint32 countAt(quint32 moduleInfo, unsigned shift)
{
    return static_cast<qint32>((moduleInfo >> shift) & 0xFFU);
}

/// Returns the folder of the library file that contains this code.
QDir libraryFolder()
{
    Dl_info info{};
    // Uses an address with internal linkage, because an exported function may be that of another library.
    if (dladdr(&appVersion, &info) == 0 || info.dli_fname == nullptr) {
        return QDir::current();
    }
    return QFileInfo(QFile::decodeName(info.dli_fname)).absoluteDir();
}

QString shippedCatalog()
{
    const QDir folder = libraryFolder();
    const auto catalogBelow = [&](const char *prefix) {
        return QDir::cleanPath(
            folder.absoluteFilePath(QLatin1String(prefix) + QStringLiteral("/share/simpleextend/catalog")));
    };
    // The library is in lib/, lib/<architecture>/ or lib/<architecture>/simpleextend/ of the installation.
    for (const char *prefix : {"..", "../..", "../../.."}) {
        QString catalog = catalogBelow(prefix);
        if (QFileInfo::exists(catalog)) {
            return catalog;
        }
    }
    return catalogBelow("..");
}

} // namespace

qint32 getModuleDINum(quint32 moduleInfo)
{
    return countAt(moduleInfo, 0);
}

qint32 getModuleDQNum(quint32 moduleInfo)
{
    return countAt(moduleInfo, 8);
}

qint32 getModuleAINum(quint32 moduleInfo)
{
    return countAt(moduleInfo, 16);
}

qint32 getModuleAQNum(quint32 moduleInfo)
{
    return countAt(moduleInfo, 24);
}

QString getHwcnfgComponentPath(HwcnfgComponent component)
{
    // The folder of the library cannot change, but the environment can.
    static const QString shipped = shippedCatalog();
    const QString chosen = QFile::decodeName(qgetenv("SIMHOST_COMPONENTS"));
    const QString root = chosen.isEmpty() ? shipped : QDir::cleanPath(QDir(chosen).absolutePath());
    using simulatedhost::HostCall;
    const bool isDescription = component == HwcnfgComponent::ModuleDescription;
    const bool isMissing = callFails(isDescription ? HostCall::FindDescriptions : HostCall::FindComponents);
    const QString folder = root % QLatin1Char('/') % QString::number(static_cast<qint32>(component));
    return folder % QLatin1String(isMissing ? "/missing/" : "/");
}

quint32 getAppVerNum()
{
    return appVersion;
}
