// The plug-in, loaded at run time: its twenty exports as typed function pointers.
#pragma once

#include "simpleextendexportfunc.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QString>

#include <memory>

/// One pointer per export, named as the export. All of them are set once PluginLibrary::load succeeded.
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

/// A module that its holder owns; releaseObject runs exactly once for it.
using ModuleHandle = std::unique_ptr<SimpleExtendPar, decltype(&::releaseObject)>;

/// The loaded library. It stays loaded when this object goes, but must outlive its users all the same: they
/// keep a pointer to the exports.
class PluginLibrary {
    Q_DECLARE_TR_FUNCTIONS(PluginLibrary)
public:
    /// Loads the library file @p path, or the one that the program would use by itself when that is empty.
    /// False when it cannot be loaded or lacks an export; errorString() then says why.
    bool load(const QString &path);

    const PluginExports &exports() const { return m_exports; }
    QString errorString() const { return m_errorString; }
    /// The file that was loaded, or that should have been.
    QString fileName() const { return m_library.fileName(); }

    /// Takes the ownership of what createObject, restore or recompile returned.
    ModuleHandle own(SimpleExtendPar *handle) const { return {handle, m_exports.releaseObject}; }

private:
    QLibrary m_library;
    PluginExports m_exports;
    QString m_errorString;
};
