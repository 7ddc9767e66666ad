#include "roundtrip.h"

#include <functional>
#include <numeric>

namespace {

QByteArray compiledBlock(const PluginExports &exports, SimpleExtendPar *module)
{
    QByteArray block;
    QStringList list;
    exports.compile(module, block, list);
    return block;
}

/// True if the blocks have one size and differ in exactly @p count bytes.
bool differInBytes(const QByteArray &a, const QByteArray &b, int count)
{
    return a.size() == b.size() &&
           std::inner_product(a.begin(), a.end(), b.begin(), 0, std::plus<>(), std::not_equal_to<>()) == count;
}

int halvedLengths(const IoMap &original, const IoMap &rebuilt)
{
    return original.unit == 4 && rebuilt.unit == 2 && original.count != 0 ? 1 : 0;
}

} // namespace

RoundTrip roundTrip(const PluginLibrary &plugin, SimpleExtendPar *module)
{
    const PluginExports &exports = plugin.exports();
    const QByteArray saved = exports.save(module);
    const QByteArray compiled = compiledBlock(exports, module);
    // The copies have no owner, so they do not claim the addresses of the module.
    const ModuleHandle copy = plugin.own(exports.restore(saved, QString()));
    qint32 code = 0;
    const ModuleHandle rebuilt = plugin.own(exports.recompile(compiled, QString(), &code));

    RoundTrip result;
    result.savedBytes = saved.size();
    result.compiledBytes = compiled.size();
    result.savedSame = copy && exports.save(copy.get()) == saved;
    if (rebuilt) {
        result.rangeLengthsHalved = halvedLengths(exports.getInMap(module), exports.getInMap(rebuilt.get())) +
                                    halvedLengths(exports.getOutMap(module), exports.getOutMap(rebuilt.get()));
        result.compiledSame = differInBytes(compiled, compiledBlock(exports, rebuilt.get()), result.rangeLengthsHalved);
    }
    return result;
}
