// Reads what is left of a damaged project file.
#pragma once

#include "project.h"
#include "result.h"

#include <QStringList>

struct RecoveredProject {
    Project project;    ///< PLC type 0 if it cannot be read
    QStringList losses; ///< one sentence each, in the user's language
};

/// The modules of a project file that ProjectFile::read() rejects, one by one. Never changes the file. Fails when no
/// module can be read. A wrong byte inside a module cannot be located, because the file has one checksum for all
/// modules; a loss then states that values may be wrong.
Result<RecoveredProject> recoverProject(const QString &path);
