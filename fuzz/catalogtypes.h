// The module types of the host's catalog.
#pragma once

#include "baseservices.h"
#include "target.h"

#include <QDir>

#include <algorithm>
#include <vector>

namespace fuzz {

/// Returns the type codes in ascending order. Aborts the program if there are none.
inline std::vector<quint32> catalogTypes()
{
    std::vector<quint32> types;
    const QDir folder(getHwcnfgComponentPath(HwcnfgComponent::ModuleDescription));
    const QStringList files = folder.entryList({QStringLiteral("hw*.met")}, QDir::Files);
    for (const QString &file : files) {
        types.push_back(file.mid(2, 8).toUInt(nullptr, 16));
    }
    std::sort(types.begin(), types.end());
    require(!types.empty(), "the catalog is empty");
    return types;
}

} // namespace fuzz
