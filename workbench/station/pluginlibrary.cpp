#include "pluginlibrary.h"

#include <QDir>
#include <QFileInfo>

#include <array>

namespace {

struct ExportEntry {
    const char *name;
    void (*store)(PluginExports &exports, QFunctionPointer function);
};

template <auto Member>
void store(PluginExports &exports, QFunctionPointer function)
{
    using Function = std::remove_reference_t<decltype(exports.*Member)>;
    exports.*Member = reinterpret_cast<Function>(function);
}

constexpr std::array<ExportEntry, 20> exportTable{{
    {"createObject", store<&PluginExports::createObject>},
    {"releaseObject", store<&PluginExports::releaseObject>},
    {"config", store<&PluginExports::config>},
    {"autoMallocInMap", store<&PluginExports::autoMallocInMap>},
    {"autoMallocOutMap", store<&PluginExports::autoMallocOutMap>},
    {"getName", store<&PluginExports::getName>},
    {"getComment", store<&PluginExports::getComment>},
    {"getNodeId", store<&PluginExports::getNodeId>},
    {"getInMap", store<&PluginExports::getInMap>},
    {"getOutMap", store<&PluginExports::getOutMap>},
    {"getPosition", store<&PluginExports::getPosition>},
    {"getRackId", store<&PluginExports::getRackId>},
    {"getSlotId", store<&PluginExports::getSlotId>},
    {"setPosition", store<&PluginExports::setPosition>},
    {"setRackId", store<&PluginExports::setRackId>},
    {"setSlotId", store<&PluginExports::setSlotId>},
    {"compile", store<&PluginExports::compile>},
    {"recompile", store<&PluginExports::recompile>},
    {"save", store<&PluginExports::save>},
    {"restore", store<&PluginExports::restore>},
}};

/// The library relative to the program, in the build folder or in an installation; otherwise the loader searches it.
QString defaultLibrary()
{
    const QDir programFolder(QCoreApplication::applicationDirPath());
    for (const char *folder : {"../lib", "../" WORKBENCH_LIBDIR}) {
        const QString path =
            programFolder.absoluteFilePath(QLatin1String(folder) + QStringLiteral("/libsimpleextend.so"));
        if (QFileInfo::exists(path)) {
            return QDir::cleanPath(path);
        }
    }
    return QStringLiteral("simpleextend");
}

} // namespace

Result<> PluginLibrary::load(const QString &path)
{
    m_exports = {};
    m_library.setFileName(path.isEmpty() ? defaultLibrary() : path);
    if (!m_library.load()) {
        return Failure{m_library.errorString()};
    }
    PluginExports found;
    for (const ExportEntry &entry : exportTable) {
        const QFunctionPointer function = m_library.resolve(entry.name);
        if (function == nullptr) {
            return Failure{tr("%1 does not export %2.").arg(m_library.fileName(), QLatin1String(entry.name))};
        }
        entry.store(found, function);
    }
    m_exports = found;
    return {};
}
