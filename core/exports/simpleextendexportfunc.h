// The plug-in's boundary: twenty functions with undecorated names.
//
// A handle is a SimpleExtendPar. The host owns each handle that createObject(), restore() or recompile() returns, and
// passes it to releaseObject() in the end. A handle must be valid: only releaseObject() and config() accept null.
// All functions must be called on the user-interface thread. None of them throws. Memory that a call claims before it
// fails stays claimed.
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

/// Creates a module with the factory parameters of its type and claims its ranges.
/// @param typeCode module type code; a description file of the host's catalog must have it
/// @param memoryOwner station in whose memory the ranges are claimed; with an empty owner nothing is claimed
/// @return a handle that the host owns; null if the type is unknown, its component file is missing or there is no room
/// for a range
SIMPLEEXTEND_EXPORT SimpleExtendPar *createObject(quint32 typeCode, const QString &memoryOwner) noexcept;

/// Releases the module's ranges, also under an empty owner, and destroys the module.
/// @param handle invalid after the call; null is ignored
SIMPLEEXTEND_EXPORT void releaseObject(SimpleExtendPar *handle) noexcept;

/// Shows the modal properties dialog and returns when it closes. If the dialog is accepted, the changes to the memory
/// map stay; otherwise they are rolled back.
/// @param handle the module to edit; with null the call is a no-op
/// @param memoryOwner station whose memory map is rolled back
/// @param parent parent of the dialog, which may be destroyed while the dialog is open; with null the call is a no-op
/// @param locked true disables the OK button
/// @return always 0
SIMPLEEXTEND_EXPORT qint32 config(SimpleExtendPar *handle, const QString &memoryOwner, QWidget *parent,
                                  bool locked) noexcept;

/// Claims the module's input range at its start, or anywhere in its area if that fails.
/// @return false if there is no room or the host throws; without room the start is then 65535
SIMPLEEXTEND_EXPORT bool autoMallocInMap(SimpleExtendPar *handle) noexcept;
/// The same as autoMallocInMap() for the output range.
SIMPLEEXTEND_EXPORT bool autoMallocOutMap(SimpleExtendPar *handle) noexcept;

SIMPLEEXTEND_EXPORT QString getName(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT QString getComment(SimpleExtendPar *handle) noexcept;
/// @return the module type code
SIMPLEEXTEND_EXPORT qint32 getNodeId(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT IoMap getInMap(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT IoMap getOutMap(SimpleExtendPar *handle) noexcept;
/// @return the position that the host has set; its unit is the host's
SIMPLEEXTEND_EXPORT QPoint getPosition(SimpleExtendPar *handle) noexcept;
/// @return the rack number; -1 for a module without a place
SIMPLEEXTEND_EXPORT qint32 getRackId(SimpleExtendPar *handle) noexcept;
/// @return the slot number; -1 for a module without a place
SIMPLEEXTEND_EXPORT qint32 getSlotId(SimpleExtendPar *handle) noexcept;
SIMPLEEXTEND_EXPORT void setPosition(SimpleExtendPar *handle, const QPoint &position) noexcept;
/// @param rackId blocks store its low 8 bits, which are read with their sign: -128 to 127 are kept
SIMPLEEXTEND_EXPORT void setRackId(SimpleExtendPar *handle, qint32 rackId) noexcept;
/// @param slotId the same range as that of setRackId()
SIMPLEEXTEND_EXPORT void setSlotId(SimpleExtendPar *handle, qint32 slotId) noexcept;

/// Writes the module's configuration block.
/// @param block receives the block after the bytes that it already has; unchanged if a conversion of the host throws
/// @param list is emptied
/// @return always 0
SIMPLEEXTEND_EXPORT qint32 compile(SimpleExtendPar *handle, QByteArray &block, QStringList &list) noexcept;

/// Creates a module from a configuration block and claims its ranges at the stored starts. A range that is not free
/// keeps its start without a claim.
/// @param memoryOwner as for createObject()
/// @param result null, or receives 0 if the header is read and 129 if the type is unknown; unchanged if the block ends
/// before its header
/// @return a handle that the host owns; null if the block ends before its header or type code, the type is unknown or
/// its component file is missing
SIMPLEEXTEND_EXPORT SimpleExtendPar *recompile(const QByteArray &block, const QString &memoryOwner,
                                               qint32 *result) noexcept;

/// @return the module's saved state; empty if the host throws
SIMPLEEXTEND_EXPORT QByteArray save(SimpleExtendPar *handle) noexcept;

/// The same as recompile() for a saved state, without a result code.
SIMPLEEXTEND_EXPORT SimpleExtendPar *restore(const QByteArray &state, const QString &memoryOwner) noexcept;
}
