// Runs code of an unknown library in a child process, because it may crash, hang or end the process.
#pragma once

#include <QByteArray>

#include <functional>
#include <variant>

/// Why the child process has returned no bytes.
struct ChildFailure {
    QByteArray text;
};

/// Runs @p call in a copy of this process. Returns its result, of which at most 4096 bytes are kept, or ChildFailure if
/// it throws, ends the process or does not return within @p seconds. What it writes to standard output appears on
/// standard error. Throws std::system_error if no process can be started.
///
/// The child process has only the calling thread.
std::variant<QByteArray, ChildFailure> runIsolated(const std::function<QByteArray()> &call, unsigned seconds);
