// The promises of the host's contract that a program can check. docs/host-contract.md lists all promises.
#pragma once

#include <QStringList>
#include <QVector>

/// Keys of two stations with unused memory.
struct Owners {
    QString station;
    QString other;
};

/// Thrown by a check.
struct BrokenPromise {
    QString text; ///< the call and its result
};

struct Promise {
    const char *name;
    const char *text;
    QStringList needs; ///< earlier promises without which the check would report the wrong promise
    /// Calls the host, which must be in its state after loading. Throws BrokenPromise, MissingSymbol or what the host
    /// throws.
    void (*check)(const Owners &owners);
};

/// Throws BrokenPromise with @p text unless @p isKept.
void expect(bool isKept, const QString &text);

QVector<Promise> memoryPromises();
/// Symbols, catalog, conversions and help.
QVector<Promise> otherPromises();
