#include "baseservices.h"
#include "faults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

constexpr quint32 kAppVersion = 2300;

/// One of the four counts of moduleInfo: from the highest byte AQ, AI, DQ, DI.
constexpr qint32 countAt(quint32 moduleInfo, unsigned shift)
{
    return static_cast<qint32>((moduleInfo >> shift) & 0xFFU);
}

/// Folder of the library file that this code was loaded from.
QDir libraryFolder()
{
    Dl_info info{};
    // The address of something with internal linkage: an exported function may be another library's.
    if (dladdr(&kAppVersion, &info) == 0 || info.dli_fname == nullptr) {
        return QDir::current();
    }
    return QFileInfo(QFile::decodeName(info.dli_fname)).absoluteDir();
}

QString shippedCatalog()
{
    const QDir folder = libraryFolder();
    const QString catalog = QStringLiteral("share/simpleextend/catalog");
    const QString beside = folder.absoluteFilePath(QStringLiteral("../") + catalog);
    // Installations with one library folder per architecture lie one level deeper (lib/<architecture>/).
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
    // Where the library lies cannot change, the environment can.
    static const QString kShipped = shippedCatalog();
    const QString chosen = QFile::decodeName(qgetenv("SIMHOST_COMPONENTS"));
    const QString root = chosen.isEmpty() ? kShipped : QDir::cleanPath(QDir(chosen).absolutePath());
    using simulatedhost::HostCall;
    const bool isDescription = component == HwcnfgComponent::ModuleDescription;
    const bool isMissing = callFails(isDescription ? HostCall::FindDescriptions : HostCall::FindComponents);
    const QString folder = root % QLatin1Char('/') % QString::number(static_cast<qint32>(component));
    return folder % QLatin1String(isMissing ? "/missing/" : "/");
}

quint32 getAppVerNum()
{
    return kAppVersion;
}
