// The plug-in, loaded at run time: its twenty exports as typed function pointers.
#pragma once

#include "result.h"
#include "simpleextendexportfunc.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QString>

#include <memory>

/// One pointer per export, with the name of the export. All are set after PluginLibrary::load() succeeded.
struct PluginExports {
    decltype(&::createObject) createObject = nullptr;
    decltype(&::releaseObject) releaseObject = nullptr;
    decltype(&::config) config = nullptr;
    decltype(&::autoMallocInMap) autoMallocInMap = nullptr;
    decltype(&::autoMallocOutMap) autoMallocOutMap = nullptr;
    decltype(&::getName) getName = nullptr;
    decltype(&::getComment) getComment = nullptr;
    decltype(&::getNodeId) getNodeId = nullptr;
    decltype(&::getInMap) getInMap = nullptr;
    decltype(&::getOutMap) getOutMap = nullptr;
    decltype(&::getPosition) getPosition = nullptr;
    decltype(&::getRackId) getRackId = nullptr;
    decltype(&::getSlotId) getSlotId = nullptr;
    decltype(&::setPosition) setPosition = nullptr;
    decltype(&::setRackId) setRackId = nullptr;
    decltype(&::setSlotId) setSlotId = nullptr;
    decltype(&::compile) compile = nullptr;
    decltype(&::recompile) recompile = nullptr;
    decltype(&::save) save = nullptr;
    decltype(&::restore) restore = nullptr;
};

/// Owns a module and calls releaseObject for it.
using ModuleHandle = std::unique_ptr<SimpleExtendPar, decltype(&::releaseObject)>;

/// The loaded library. It stays loaded after this object is destroyed. This object must still outlive its users,
/// because they keep a pointer to the exports.
class PluginLibrary {
    Q_DECLARE_TR_FUNCTIONS(PluginLibrary)
public:
    /// Loads the library file @p path, or the default library if that is empty. Fails if it cannot be loaded or lacks
    /// an export; then exports() has only null pointers.
    Result<> load(const QString &path);

    const PluginExports &exports() const { return m_exports; }
    /// The file of the latest load().
    QString fileName() const { return m_library.fileName(); }

    /// Takes ownership of a module that createObject, restore or recompile returned. Null is allowed.
    ModuleHandle own(SimpleExtendPar *handle) const { return {handle, m_exports.releaseObject}; }

private:
    QLibrary m_library;
    PluginExports m_exports;
};
