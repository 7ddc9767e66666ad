// The step that gives the parameters of copied modules to other modules.
#include "statepatch.h"
#include "stationcommands.h"

#include <QHash>

Result<ParameterPaste> StationEdits::pasteParameters(const QByteArrayList &states, const QVector<Place> &places)
{
    QHash<quint32, QByteArray> sources;
    for (const QByteArray &state : states) {
        if (const std::optional<quint32> type = typeCodeOfState(state); type && !sources.contains(*type)) {
            sources.insert(*type, state);
        }
    }
    ParameterPaste result;
    std::vector<StoredModule> before;
    std::vector<StoredModule> after;
    for (const Place place : places) {
        StoredModule module = stored(place);
        const std::optional<QByteArray> state = withSectionsOf(sources.value(module.typeCode), module.state);
        if (!module.unavailable.isEmpty()) {
            ++result.unavailable;
        } else if (!state) {
            ++result.otherType;
        } else if (*state == module.state) {
            ++result.same;
        } else {
            before.push_back(module);
            module.state = *state;
            after.push_back(module);
        }
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
        m_station.take(after[i].place);
        if (m_station.put(after[i])) {
            continue;
        }
        const Failure failure{m_station.stored(*m_station.moduleAt(after[i].place)).unavailable};
        for (std::size_t undone = 0; undone <= i; ++undone) {
            m_station.take(before[undone].place);
            m_station.put(before[undone]);
        }
        return failure;
    }
    result.changed = static_cast<int>(after.size());
    if (result.changed != 0) {
        pushReplacement(before, after, tr("Paste parameters to %n module(s)", nullptr, result.changed));
    }
    return result;
}
