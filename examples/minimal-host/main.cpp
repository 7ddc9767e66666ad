// The smallest host: creates a module, shows its properties, saves it, compiles it, and opens the saved state again.
// docs/integrating.md explains each step.
//
// usage: minimal-host [--no-dialog]
#include <simpleextendexportfunc.h>

#include <QApplication>
#include <QTextStream>
#include <QWidget>

#include <memory>

namespace {

constexpr quint32 digitalInputs16 = 0x3553; // a module type code of the catalog

/// Releases the module's ranges and destroys the module.
using Module = std::unique_ptr<SimpleExtendPar, decltype(&releaseObject)>;

int fail(const char *reason)
{
    QTextStream(stderr) << "minimal-host: " << reason << '\n';
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QString station = QStringLiteral("station 1"); // the key of the memory map that the module's ranges are in
    QWidget window;

    Module module(createObject(digitalInputs16, station), releaseObject);
    if (module == nullptr) {
        return fail("the type is not in the catalog, or the station has no room for its ranges");
    }
    setRackId(module.get(), 0);
    setSlotId(module.get(), 3);
    if (!application.arguments().contains(QStringLiteral("--no-dialog"))) {
        config(module.get(), station, &window, false);
    }
    const QByteArray state = save(module.get());
    QByteArray download;
    QStringList unused;
    compile(module.get(), download, unused);
    if (state.isEmpty() || download.isEmpty()) {
        return fail("a conversion of the host failed");
    }
    const IoMap input = getInMap(module.get());
    QTextStream(stdout) << getName(module.get()) << ": " << input.count << " channels from byte " << input.start
                        << ", block of " << download.size() << " bytes\n";

    module.reset(); // before the state is restored, because two modules cannot hold the same ranges
    module.reset(restore(state, station));
    if (module == nullptr || getInMap(module.get()).start != input.start) {
        return fail("the saved state cannot be restored");
    }
    return 0;
}
