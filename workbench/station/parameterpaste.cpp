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
    if (const Result<> exchanged = exchange(before, after); !exchanged) {
        return exchanged.failure();
    }
    result.changed = static_cast<int>(after.size());
    if (result.changed != 0) {
        pushReplacement(before, after, tr("Paste parameters to %n module(s)", nullptr, result.changed));
    }
    return result;
}
