#include "isolation.h"

#include <QStringBuilder>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <sys/wait.h>
#include <system_error>
#include <tuple>
#include <unistd.h>

namespace {

constexpr char returned = 'r'; // the first byte of a report
constexpr char threw = 't';

using Report = std::array<char, PIPE_BUF>; // the maximum that a pipe takes without a reader

QByteArray reportOf(const std::function<QByteArray()> &call)
{
    const auto report = [](char kind, const QByteArray &text) { return QByteArray(1, kind).append(text); };
    try {
        return report(returned, call());
    } catch (const std::exception &exception) {
        return report(threw, QByteArrayLiteral("threw ").append(exception.what()));
    } catch (...) {
        return report(threw, QByteArrayLiteral("threw an exception"));
    }
}

[[noreturn]] void runChild(const std::function<QByteArray()> &call, unsigned seconds, int writeEnd)
{
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::signal(SIGALRM, SIG_DFL);
    alarm(seconds);
    const QByteArray report = reportOf(call).left(static_cast<int>(std::tuple_size_v<Report>));
    const ssize_t written = write(writeEnd, report.constData(), static_cast<std::size_t>(report.size()));
    const int status = written == report.size() ? EXIT_SUCCESS : EXIT_FAILURE;
#ifdef HOSTCHECK_COVERAGE
    std::exit(status); // writes the coverage counters
#else
    _exit(status); // without the destructors of the library
#endif
}

QByteArray endText(int status, unsigned seconds)
{
    if (WIFEXITED(status)) {
        return "ended the process with status " + QByteArray::number(WEXITSTATUS(status));
    }
    if (WTERMSIG(status) == SIGALRM) {
        return "did not return within " + QByteArray::number(seconds) + " s";
    }
    return QByteArrayLiteral("crashed: ").append(strsignal(WTERMSIG(status)));
}

} // namespace

std::variant<QByteArray, ChildFailure> runIsolated(const std::function<QByteArray()> &call, unsigned seconds)
{
    std::array<int, 2> ends{};
    // Without blocking, because a process that the library starts can keep the pipe open.
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    const pid_t child = fork();
    if (child == 0) {
        runChild(call, seconds, ends[1]);
    }
    const int forkError = errno;
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    Report report{};
    const ssize_t size = read(ends[0], report.data(), report.size());
    close(ends[0]);
    close(ends[1]);
    if (child < 0) {
        throw std::system_error(forkError, std::generic_category(), "fork");
    }
    if (size <= 0) {
        return ChildFailure{endText(status, seconds)};
    }
    QByteArray text(report.data() + 1, static_cast<int>(size) - 1);
    if (report[0] == threw) {
        return ChildFailure{text};
    }
    return text;
}
