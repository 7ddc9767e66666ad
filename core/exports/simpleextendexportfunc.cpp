#include "simpleextendexportfunc.h"

#include "baseservices.h"
#include "defaultbuilder.h"
#include "guarded.h"
#include "imagerange.h"
#include "modulestate.h"
#include "simpleextendcfgdlg.h"
#include "simpleextendpar.h"

#include <QPointer>

#include <memory>
#include <type_traits>

namespace {

/// Returns the result of @p call, or @p fallback if it throws.
template <typename Call, typename Result = std::invoke_result_t<Call>>
Result guarded(Call &&call, Result fallback = {}) noexcept
{
    completes([&] { fallback = call(); });
    return fallback;
}

/// Shows the properties dialog modally, then keeps or rolls back the memory map.
void runDialog(SimpleExtendPar *handle, const QString &memoryOwner, QWidget *parent, bool locked)
{
    backupUsedMemory(memoryOwner);
    // The host may destroy the dialog with its parent while it is open.
    QPointer<SimpleExtendcfgdlg> dialog;
    const int result = guarded(
        [&] {
            dialog = new SimpleExtendcfgdlg(handle, memoryOwner, parent, locked);
            return dialog->exec();
        },
        static_cast<int>(QDialog::Rejected));
    completes([&] { result == QDialog::Accepted ? popBackupMemory(memoryOwner) : restoreUsedMemory(memoryOwner); });
    delete dialog;
}

} // namespace

SimpleExtendPar *createObject(quint32 typeCode, const QString &memoryOwner) noexcept
{
    return guarded([&] { return buildDefault(typeCode, memoryOwner).release(); });
}

void releaseObject(SimpleExtendPar *handle) noexcept
{
    if (handle == nullptr) {
        return;
    }
    const std::unique_ptr<SimpleExtendPar> owned(handle);
    completes([&owned] { freeRange(owned->memoryOwner, owned->inMap); });
    completes([&owned] { freeRange(owned->memoryOwner, owned->outMap); });
}

qint32 config(SimpleExtendPar *handle, const QString &memoryOwner, QWidget *parent, bool locked) noexcept
{
    if (handle == nullptr || parent == nullptr) {
        return 0;
    }
    // A copy of the string, because the host may destroy its own while the dialog is open.
    completes([handle, parent, locked, owner = QString(memoryOwner)] { runDialog(handle, owner, parent, locked); });
    return 0;
}

bool autoMallocInMap(SimpleExtendPar *handle) noexcept
{
    return guarded([handle] { return confirmRange(handle->memoryOwner, handle->inMap, VarArea::AnalogInput); });
}

bool autoMallocOutMap(SimpleExtendPar *handle) noexcept
{
    return guarded([handle] { return confirmRange(handle->memoryOwner, handle->outMap, VarArea::AnalogOutput); });
}

QString getName(SimpleExtendPar *handle) noexcept
{
    return handle->objName;
}

QString getComment(SimpleExtendPar *handle) noexcept
{
    return handle->comment;
}

qint32 getNodeId(SimpleExtendPar *handle) noexcept
{
    return static_cast<qint32>(handle->objId);
}

IoMap getInMap(SimpleExtendPar *handle) noexcept
{
    return handle->inMap;
}

IoMap getOutMap(SimpleExtendPar *handle) noexcept
{
    return handle->outMap;
}

QPoint getPosition(SimpleExtendPar *handle) noexcept
{
    return handle->position;
}

qint32 getRackId(SimpleExtendPar *handle) noexcept
{
    return handle->rackId;
}

qint32 getSlotId(SimpleExtendPar *handle) noexcept
{
    return handle->slotId;
}

void setPosition(SimpleExtendPar *handle, const QPoint &position) noexcept
{
    handle->position = position;
}

void setRackId(SimpleExtendPar *handle, qint32 rackId) noexcept
{
    handle->rackId = rackId;
}

void setSlotId(SimpleExtendPar *handle, qint32 slotId) noexcept
{
    handle->slotId = slotId;
}

qint32 compile(SimpleExtendPar *handle, QByteArray &block, QStringList &list) noexcept
{
    return guarded([&] {
        list.clear();
        compileModule(*handle, block);
        return 0;
    });
}

SimpleExtendPar *recompile(const QByteArray &block, const QString &memoryOwner, qint32 *result) noexcept
{
    return guarded([&] { return recompileModule(block, memoryOwner, result).release(); });
}

QByteArray save(SimpleExtendPar *handle) noexcept
{
    return guarded([handle] { return saveModule(*handle); });
}

SimpleExtendPar *restore(const QByteArray &state, const QString &memoryOwner) noexcept
{
    return guarded([&] { return restoreModule(state, memoryOwner).release(); });
}
