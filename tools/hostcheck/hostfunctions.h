// The functions of the two host libraries that the plug-in calls, resolved at run time from a pair of libraries.
#pragma once

#include "baseservices.h"
#include "helpsharemodule.h"

#include <QStringList>

/// A symbol that the plug-in imports. Every object is in the list of missingSymbols().
class HostSymbol {
public:
    /// @p name is the symbol's name in the library file. It must outlive the object.
    explicit HostSymbol(const char *name);
    Q_DISABLE_COPY_MOVE(HostSymbol)

    /// Returns the name as C++ source spells it, such as "getModuleDINum(unsigned int)".
    [[nodiscard]] QString text() const;
    /// Returns null if neither loaded library has the symbol.
    [[nodiscard]] QFunctionPointer address() const;

private:
    const char *m_name;
};

/// A symbol that the loaded libraries do not have was called.
struct MissingSymbol {
    QString text;
};

template <typename Function>
class HostFunction;

/// Calls the function of the loaded libraries. Throws MissingSymbol if they do not have it.
template <typename Result, typename... Arguments>
class HostFunction<Result(Arguments...)> : public HostSymbol {
public:
    using HostSymbol::HostSymbol;

    Result operator()(Arguments... arguments) const
    {
        const QFunctionPointer function = address();
        if (function == nullptr) {
            throw MissingSymbol{text()};
        }
        return reinterpret_cast<Result (*)(Arguments...)>(function)(arguments...);
    }
};

/// Loads both libraries from @p folder. Their symbols can resolve each other's, as when a program links them.
/// Returns an empty text, or the reason why a library cannot be loaded.
QString loadHostLibraries(const QString &folder);

/// Returns the symbols that the loaded libraries do not have, also those of the widgets, which are not called.
QStringList missingSymbols();

namespace host {

inline const HostFunction<decltype(::getMemory)> getMemory("_Z9getMemoryRK7QString7VarAreaii");
inline const HostFunction<decltype(::autoMallocMemory)> autoMallocMemory("_Z16autoMallocMemoryRK7QString7VarAreai");
inline const HostFunction<decltype(::freeMemory)> freeMemory("_Z10freeMemoryRK7QString7VarAreaii");
inline const HostFunction<decltype(::backupUsedMemory)> backupUsedMemory("_Z16backupUsedMemoryRK7QString");
inline const HostFunction<decltype(::popBackupMemory)> popBackupMemory("_Z15popBackupMemoryRK7QString");
inline const HostFunction<decltype(::restoreUsedMemory)> restoreUsedMemory("_Z17restoreUsedMemoryRK7QString");
inline const HostFunction<decltype(::getMemoryErrStrByErrCode)>
    getMemoryErrStrByErrCode("_Z24getMemoryErrStrByErrCodei");
inline const HostFunction<decltype(::getModuleDINum)> getModuleDINum("_Z14getModuleDINumj");
inline const HostFunction<decltype(::getModuleDQNum)> getModuleDQNum("_Z14getModuleDQNumj");
inline const HostFunction<decltype(::getModuleAINum)> getModuleAINum("_Z14getModuleAINumj");
inline const HostFunction<decltype(::getModuleAQNum)> getModuleAQNum("_Z14getModuleAQNumj");
inline const HostFunction<decltype(::getHwcnfgComponentPath)>
    getHwcnfgComponentPath("_Z22getHwcnfgComponentPath15HwcnfgComponent");
inline const HostFunction<decltype(::getAppVerNum)> getAppVerNum("_Z12getAppVerNumv");
inline const HostFunction<decltype(::getPrjPlcTypeVersion)> getPrjPlcTypeVersion("_Z20getPrjPlcTypeVersionRK7QString");
inline const HostFunction<decltype(::getPlcAddrRange)> getPlcAddrRange("_Z15getPlcAddrRangejjRK7QString");
inline const HostFunction<decltype(::intToByteArray)> intToByteArray("_Z14intToByteArrayi");
inline const HostFunction<decltype(::shortToByteArray)> shortToByteArray("_Z16shortToByteArrays");
inline const HostFunction<decltype(::ushortToByteArray)> ushortToByteArray("_Z17ushortToByteArrayt");
inline const HostFunction<decltype(::floatToByteArray)> floatToByteArray("_Z16floatToByteArrayf");
inline const HostFunction<decltype(::byteArrayToFloat)> byteArrayToFloat("_Z16byteArrayToFloatRK10QByteArray");
inline const HostFunction<decltype(::byteArryDataToString)>
    byteArryDataToString("_Z20byteArryDataToStringRK10QByteArrayRK7QString");
inline const HostFunction<decltype(::helpKeyWord)> helpKeyWord("_Z11helpKeyWordRK7QStringS1_");

} // namespace host
