#include "modulestream.h"

#include <QDataStream>

void writeModules(QDataStream &stream, const std::vector<StoredModule> &modules)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream << static_cast<quint32>(modules.size());
    for (const StoredModule &module : modules) {
        stream << module.place.index() << module.typeCode << module.name << module.state << module.unavailable;
    }
}

bool readModules(QDataStream &stream, std::vector<StoredModule> &modules)
{
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 count = 0;
    stream >> count;
    int previous = -1;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        int index = 0;
        StoredModule module;
        stream >> index >> module.typeCode >> module.name >> module.state >> module.unavailable;
        if (index <= previous || index >= Place::count) {
            return false;
        }
        module.place = Place::at(index);
        previous = index;
        modules.push_back(module);
    }
    return stream.status() == QDataStream::Ok;
}
