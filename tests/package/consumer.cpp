// Creates a module of the installed catalog with the installed plug-in and prints its ranges.
#include <simpleextendexportfunc.h>

#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr quint32 digitalInputs16 = 0x3553;

void print(const char *name, const IoMap &range)
{
    std::printf("%s: area %d, start %d, %d channels\n", name, range.area, range.start, range.count);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    SimpleExtendPar *module = createObject(digitalInputs16, QStringLiteral("station"));
    if (module == nullptr) {
        std::puts("The installed plug-in cannot create a module of the installed catalog.");
        return 1;
    }
    const IoMap in = getInMap(module);
    print("input", in);
    print("output", getOutMap(module));
    releaseObject(module);
    return in.count == 16 ? 0 : 1;
}
