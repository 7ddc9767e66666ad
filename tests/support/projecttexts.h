// A project as texts, so a failed comparison shows what differs.
#pragma once

#include "project.h"
#include "result.h"

#include <QStringList>

/// Everything that a project file stores.
inline QStringList textsOf(const Project &project)
{
    const ProjectProperties &properties = project.properties;
    QStringList texts{QString::number(project.plcType), properties.title, properties.author, properties.revision,
                      properties.notes};
    for (const StoredModule &module : project.modules) {
        texts += QString("%1 %2 ").arg(module.place.index()).arg(module.typeCode) + module.name + module.state.toHex();
    }
    return texts;
}

/// The project, or the reason why there is none.
inline QStringList textsOf(const Result<Project> &project)
{
    return project ? textsOf(*project) : QStringList(project.reason());
}
