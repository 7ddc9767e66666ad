// The time that the dynamic loader takes to load the plug-in into a program that has Qt and the host libraries,
// compared with the same sources built with default visibility. The floor is a library without code that needs the same
// libraries.
#include "comparison.h"

#include <benchmark/benchmark.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <memory>
#include <string>

namespace {

struct Library {
    const char *name;
    const char *file;
};
constexpr Library plugin{"plug-in", SIMPLEEXTEND_LIBRARY_PATH};
constexpr Library visible{"plug-in, default visibility", SIMPLEEXTEND_VISIBLE_LIBRARY_PATH};
constexpr Library empty{"library without code", SIMPLEEXTEND_EMPTY_LIBRARY_PATH};

double cpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return std::chrono::duration<double>(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec))
        .count();
}

/// Returns the CPU seconds to load the library and to bind all its symbols; -1 if it cannot be loaded.
double secondsOfLoading(const char *file)
{
    const double start = cpuSeconds();
    const bool isLoaded = dlopen(file, RTLD_NOW | RTLD_LOCAL) != nullptr;
    return isLoaded ? cpuSeconds() - start : -1;
}

/// Returns the same from a separate process, which has loaded only Qt before.
double secondsInProcess(const char *file)
{
    const std::string command = std::string("\"") + program_invocation_name + "\" load \"" + file + "\"";
    const std::unique_ptr<FILE, int (*)(FILE *)> output(popen(command.c_str(), "r"), pclose);
    double seconds = -1;
    return output != nullptr && std::fscanf(output.get(), "%lf", &seconds) == 1 ? seconds : -1;
}

void add(const Library &library)
{
    benchmark::RegisterBenchmark(library.name,
                                 [file = library.file](benchmark::State &state) {
                                     for ([[maybe_unused]] const auto _ : state) {
                                         const double seconds = secondsInProcess(file);
                                         if (seconds < 0) {
                                             state.SkipWithError("the library cannot be loaded");
                                             break;
                                         }
                                         state.SetIterationTime(seconds);
                                     }
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 3 && std::strcmp(argv[1], "load") == 0) {
        std::printf("%.9f", secondsOfLoading(argv[2]));
        return 0;
    }
    add(plugin);
    add(visible);
    add(empty);
    Comparison comparison;
    comparison.add(TimeRow{"loading the library", plugin.name, {visible.name}, 0.60, empty.name});
    comparison.add(TimeRow{"loading the library", plugin.name, {visible.name}});
    return comparison.run(argc, argv);
}
