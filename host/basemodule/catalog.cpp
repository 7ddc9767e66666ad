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
    const QString catalog = QStringLiteral("share/simpleextend/catalog");
    const QString beside = folder.absoluteFilePath(QStringLiteral("../") + catalog);
    // An installation with one library folder per architecture has one level more (lib/<architecture>/).
    const QString above = folder.absoluteFilePath(QStringLiteral("../../") + catalog);
    return QDir::cleanPath(!QFileInfo::exists(beside) && QFileInfo::exists(above) ? above : beside);
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
