// What the user must know about a station and its catalog, with the places where it can be corrected.
#pragma once

#include "project.h"

#include <QString>

#include <optional>
#include <vector>

class PluginLibrary;
class Station;

struct Problem {
    enum class Kind { Module, Address, Description, Recovery };

    Kind kind = Kind::Module;
    QString text;               ///< what happened and what to do, in the user's language
    std::optional<Place> place; ///< of a module
    QString file;               ///< path of a description file
    int line = 0;               ///< in that file, from 1

    bool operator==(const Problem &other) const
    {
        return kind == other.kind && text == other.text && place == other.place && file == other.file &&
               line == other.line;
    }
};

/// Unavailable modules, which are not compiled, and addresses that are not as the station needs them.
std::vector<Problem> problemsOf(const Station &station);

/// The description files in the host's folder of which the plug-in creates no module, with the diagnostics of the
/// linter. The linter's texts are English.
std::vector<Problem> ignoredDescriptions(const PluginLibrary &plugin);

/// Where a problem is: rack and slot, or file and line.
QString whereText(const Problem &problem);
