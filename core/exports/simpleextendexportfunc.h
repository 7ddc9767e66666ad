// The plug-in's boundary: twenty functions with undecorated names.
//
// A handle is a SimpleExtendPar that the host keeps and passes back. The host owns every handle that
// createObject, restore and recompile return until it passes it to releaseObject. Unless a function says
// that it accepts null, the handle must be valid. All of them belong on the host's
// user-interface thread.
#pragma once

#include "iomap.h"

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <QStringList>

#ifdef SIMPLEEXTEND_LIBRARY
#define SIMPLEEXTEND_EXPORT Q_DECL_EXPORT
#else
#define SIMPLEEXTEND_EXPORT Q_DECL_IMPORT
#endif

struct SimpleExtendPar;
class QWidget;

extern "C" {

/// A new module with the factory parameters of its type, its ranges claimed under @p memoryOwner (none when
/// that is empty). Null when the type is unknown, its component file is missing or a range finds no room; an
/// input range that was claimed before the output range failed stays claimed.
SIMPLEEXTEND_EXPORT SimpleExtendPar *createObject(quint32 typeCode, const QString &memoryOwner) noexcept;

/// Frees the module's ranges and destroys it. Null is ignored.
SIMPLEEXTEND_EXPORT void releaseObject(SimpleExtendPar *handle) noexcept;

/// Shows the modal properties dialog; @p locked disables its OK button. The memory map is kept when the dialog
/// is accepted and rolled back otherwise. Always 0; does nothing when @p handle or @p parent is null.
SIMPLEEXTEND_EXPORT qint32 config(SimpleExtendPar *handle, const QString &memoryOwner, QWidget *parent,
                                  bool locked) noexcept;

/// Makes sure that the range is held in the host's memory map, at its start or else wherever there is room.
/// False when there is no room; the start then reads 65535.
SIMPLEEXTEND_EXPORT bool autoMallocInMap(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT bool autoMallocOutMap(SimpleExtendPar *handle) noexcept;

SIMPLEEXTEND_EXPORT QString getName(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT QString getComment(SimpleExtendPar *handle) noexcept;
/// The module type code.
SIMPLEEXTEND_EXPORT qint32 getNodeId(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT IoMap getInMap(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT IoMap getOutMap(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT QPoint getPosition(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT qint32 getRackId(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT qint32 getSlotId(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT void setPosition(SimpleExtendPar *handle, const QPoint &position) noexcept;
SIMPLEEXTEND_EXPORT void setRackId(SimpleExtendPar *handle, qint32 rackId) noexcept;
SIMPLEEXTEND_EXPORT void setSlotId(SimpleExtendPar *handle, qint32 slotId) noexcept;

/// Appends the module's configuration block to @p block and empties @p list. Always 0.
SIMPLEEXTEND_EXPORT qint32 compile(SimpleExtendPar *handle, QByteArray &block, QStringList &list) noexcept;

/// A new module from a configuration block, its ranges claimed where the block has them. Null when the block is
/// damaged, its type unknown or its component file missing. @p result (null is accepted) receives 0, or 129 for
/// an unknown type; it is not written when the block ends before its header does.
SIMPLEEXTEND_EXPORT SimpleExtendPar *recompile(const QByteArray &block, const QString &memoryOwner,
                                               qint32 *result) noexcept;

/// The module's saved state.
SIMPLEEXTEND_EXPORT QByteArray save(SimpleExtendPar *handle) noexcept;

/// A new module from a saved state, its ranges claimed where the state has them. Null when the state is damaged or
/// the component file missing.
SIMPLEEXTEND_EXPORT SimpleExtendPar *restore(const QByteArray &state, const QString &memoryOwner) noexcept;
}
