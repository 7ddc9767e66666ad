// The simulated host, except that one of its functions throws. A program that includes this header in one source file
// links these functions instead of those of basemodule and helpsharemodule.
#pragma once

#include "baseservices.h"
#include "helpsharemodule.h"

#include <QByteArray>
#include <QMap>

#include <dlfcn.h>

#include <new>

/// The call that throws.
struct ThrowingHost {
    QByteArray function;           ///< empty = none
    int at = 1;                    ///< number of the call, from 1
    bool lasts = false;            ///< true if all later calls throw as well
    QMap<QByteArray, int> calls{}; ///< calls so far of each function

    void enter(const char *called)
    {
        const int number = ++calls[called];
        if (function == called && (number == at || (lasts && number > at))) {
            throw std::bad_alloc();
        }
    }
};

inline ThrowingHost &throwingHost()
{
    static ThrowingHost host;
    return host;
}

/// Returns the function of the host's library.
template <typename Function>
Function *hostFunction(const char *symbol)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, symbol));
}

#define MAY_THROW(Result, name, symbol, parameters, arguments)                                                         \
    Result name parameters                                                                                             \
    {                                                                                                                  \
        throwingHost().enter(#name);                                                                                   \
        static auto *const host = hostFunction<Result parameters>(symbol);                                             \
        return host arguments;                                                                                         \
    }

MAY_THROW(qint32, getMemory, "_Z9getMemoryRK7QString7VarAreaii",
          (const QString &owner, VarArea area, qint32 start, qint32 length), (owner, area, start, length))
MAY_THROW(bool, freeMemory, "_Z10freeMemoryRK7QString7VarAreaii",
          (const QString &owner, VarArea area, qint32 start, qint32 length), (owner, area, start, length))
MAY_THROW(void, backupUsedMemory, "_Z16backupUsedMemoryRK7QString", (const QString &owner), (owner))
MAY_THROW(void, popBackupMemory, "_Z15popBackupMemoryRK7QString", (const QString &owner), (owner))
MAY_THROW(void, restoreUsedMemory, "_Z17restoreUsedMemoryRK7QString", (const QString &owner), (owner))
MAY_THROW(QString, getMemoryErrStrByErrCode, "_Z24getMemoryErrStrByErrCodei", (qint32 code), (code))
MAY_THROW(qint32, getModuleDINum, "_Z14getModuleDINumj", (quint32 moduleInfo), (moduleInfo))
MAY_THROW(qint32, getModuleDQNum, "_Z14getModuleDQNumj", (quint32 moduleInfo), (moduleInfo))
MAY_THROW(qint32, getModuleAINum, "_Z14getModuleAINumj", (quint32 moduleInfo), (moduleInfo))
MAY_THROW(qint32, getModuleAQNum, "_Z14getModuleAQNumj", (quint32 moduleInfo), (moduleInfo))
MAY_THROW(QString, getHwcnfgComponentPath, "_Z22getHwcnfgComponentPath15HwcnfgComponent", (HwcnfgComponent component),
          (component))
MAY_THROW(quint32, getAppVerNum, "_Z12getAppVerNumv", (), ())
MAY_THROW(PlcTypeVersion, getPrjPlcTypeVersion, "_Z20getPrjPlcTypeVersionRK7QString", (const QString &owner), (owner))
MAY_THROW(quint32, getPlcAddrRange, "_Z15getPlcAddrRangejjRK7QString",
          (quint32 plcType, quint32 plcVersion, const QString &rangeName), (plcType, plcVersion, rangeName))
MAY_THROW(QString, helpKeyWord, "_Z11helpKeyWordRK7QStringS1_", (const QString &english, const QString &local),
          (english, local))
MAY_THROW(void, startHelpSys, "_Z12startHelpSysRK7QString", (const QString &keyword), (keyword))
