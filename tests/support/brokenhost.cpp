// A host library that breaks one promise: the simulated host with the change that the environment variable
// BROKEN_PROMISE names. The library replaces both host libraries. It links the simulated ones, which define all other
// functions.
#include "baseservices.h"
#include "helpsharemodule.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <stdexcept>

namespace {

bool breaks(const char *promise)
{
    return qgetenv("BROKEN_PROMISE") == promise;
}

/// Returns the function of the simulated host that @p replacement replaces.
template <typename Function>
Function *original(Function *replacement)
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<void *>(replacement), &info) == 0 || info.dli_sname == nullptr) {
        std::abort();
    }
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, info.dli_sname));
}

QString keyOf(const QString &owner)
{
    const bool isShared = owner.isEmpty() ? breaks("empty-owner") : breaks("separate-owners");
    return isShared ? QStringLiteral("hostcheck-1") : owner;
}

QByteArray reversed(QByteArray bytes)
{
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

[[maybe_unused]] const bool isLoaded = [] {
    if (breaks("loading")) {
        std::abort();
    }
    return true;
}();

} // namespace

qint32 getMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    const qint32 claimedLength = breaks("empty-range") ? std::max(length, 1) : length;
    const qint32 code = original(getMemory)(keyOf(owner), area, start, claimedLength);
    if (breaks("claim")) {
        return code == 1 ? 0 : code;
    }
    return breaks("claim-refusal") && code == 6 ? 1 : code;
}

qint32 autoMallocMemory(const QString &owner, VarArea area, qint32 length)
{
    const qint32 start = original(autoMallocMemory)(keyOf(owner), area, length);
    if (breaks("allocate") && start >= 0) {
        freeMemory(owner, area, start, length);
    }
    return breaks("no-room") && start < 0 ? 0xFFFF : start;
}

bool freeMemory(const QString &owner, VarArea area, qint32 start, qint32 length)
{
    if (breaks("release")) {
        return true;
    }
    if (breaks("release-exact")) {
        for (length = 1; length < 64 && !original(freeMemory)(owner, area, start, length); ++length) {
        }
        return length < 64;
    }
    const VarArea freed = breaks("unknown-area") && area == VarArea::None ? VarArea::DigitalInput : area;
    return original(freeMemory)(keyOf(owner), freed, start, length);
}

void backupUsedMemory(const QString &owner)
{
    if (breaks("snapshot-nesting")) {
        popBackupMemory(owner);
    }
    original(backupUsedMemory)(keyOf(owner));
}

void popBackupMemory(const QString &owner)
{
    original(breaks("snapshot-drop") ? restoreUsedMemory : popBackupMemory)(keyOf(owner));
}

void restoreUsedMemory(const QString &owner)
{
    original(breaks("snapshot-restore") ? popBackupMemory : restoreUsedMemory)(keyOf(owner));
}

QString getMemoryErrStrByErrCode(qint32 code)
{
    return breaks("error-text") ? QString() : original(getMemoryErrStrByErrCode)(code);
}

quint32 getPlcAddrRange(quint32 plcType, quint32 plcVersion, const QString &rangeName)
{
    return original(getPlcAddrRange)(plcType, plcVersion, rangeName) / (breaks("area-size") ? 2 : 1);
}

qint32 getModuleAINum(quint32 moduleInfo)
{
    return original(breaks("channel-counts") ? getModuleDINum : getModuleAINum)(moduleInfo);
}

QString getHwcnfgComponentPath(HwcnfgComponent component)
{
    const QString path = original(getHwcnfgComponentPath)(component);
    return breaks("component-path") ? path.chopped(1) : path;
}

quint32 getAppVerNum()
{
    return breaks("app-version") ? 1999 : original(getAppVerNum)();
}

QByteArray shortToByteArray(qint16 value)
{
    const QByteArray bytes = original(shortToByteArray)(value);
    return breaks("number-bytes") ? reversed(bytes) : bytes;
}

float byteArrayToFloat(const QByteArray &bytes)
{
    return original(byteArrayToFloat)(breaks("bytes-float") ? reversed(bytes) : bytes);
}

QString byteArryDataToString(const QByteArray &data, const QString &separator)
{
    if (breaks("crash")) {
        std::abort();
    }
    if (breaks("exit")) {
        std::_Exit(0);
    }
    if (breaks("throw")) {
        throw std::runtime_error("no text");
    }
    while (breaks("hang")) {
    }
    return original(byteArryDataToString)(data, breaks("bytes-text") ? QStringLiteral(" ") : separator);
}

QString helpKeyWord(const QString &english, const QString &local)
{
    return breaks("help-keyword") ? english + local : original(helpKeyWord)(english, local);
}
