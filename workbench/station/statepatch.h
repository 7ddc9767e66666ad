// Reads and changes fields in the header of a block without rebuilding the module.
#pragma once

#include "project.h"
#include "simpleextendexportfunc.h"

#include <initializer_list>
#include <optional>
#include <utility>

/// The type code of a saved state, or of the first of several configuration blocks. std::nullopt if the header ends
/// before it.
std::optional<quint32> typeCodeOfState(const QByteArray &state);
std::optional<quint32> typeCodeOfBlock(const QByteArray &blocks);

/// The ranges that a saved state stores, in bytes; an empty range for one that it lacks.
std::pair<IoMap, IoMap> rangesOfState(const QByteArray &state);

/// A copy of a saved state with other bytes in fields of its header. Each field is given by its name without "header."
/// and has the length of its bytes. Fields that the state lacks are not added.
QByteArray withFields(QByteArray state, std::initializer_list<std::pair<const char *, QByteArray>> fields);
/// The sections of a saved state, which contain the parameters of the channels; empty if the state has no valid header.
QByteArray sectionsOf(const QByteArray &state);
/// A copy of a saved state with the sections of @p source: the parameters of its channels. Name, comment, place and
/// ranges stay. std::nullopt if one of the states has no valid header.
std::optional<QByteArray> withSectionsOf(const QByteArray &source, const QByteArray &state);
QByteArray withPlace(const QByteArray &state, Place place);
QByteArray withRanges(const QByteArray &state, const IoMap &in, const IoMap &out);
