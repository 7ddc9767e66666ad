// hostcheck: checks whether a pair of host libraries keeps the promises that the plug-in relies on.
#include "commandline.h"
#include "hostfunctions.h"
#include "isolation.h"
#include "promises.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <system_error>

namespace {

enum ExitStatus { Kept = 0, Broken = 1, Failure = exitFailure };

using Row = QStringList;

struct Options {
    QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Print JSON instead of lines.")};
    QCommandLineOption list{QStringLiteral("list-promises"), QStringLiteral("List the promises and exit.")};
    QCommandLineOption owner{QStringLiteral("owner"),
                             QStringLiteral("Key of a station with unused memory (default: hostcheck-1)."),
                             QStringLiteral("KEY"), QStringLiteral("hostcheck-1")};
    QCommandLineOption other{QStringLiteral("other-owner"),
                             QStringLiteral("Key of another station with unused memory (default: hostcheck-2)."),
                             QStringLiteral("KEY"), QStringLiteral("hostcheck-2")};
    QCommandLineOption timeout{QStringLiteral("timeout"),
                               QStringLiteral("Time for each promise in seconds (default: 10)."),
                               QStringLiteral("SECONDS"), QStringLiteral("10")};
};

QVector<Promise> allPromises()
{
    return otherPromises() + memoryPromises();
}

/// Prints each row as a line, or as an object with these keys in a JSON array.
void print(const QStringList &keys, const QVector<Row> &rows, bool asJson)
{
    QJsonArray array;
    for (const Row &row : rows) {
        QString line;
        QJsonObject object;
        for (int i = 0; i < keys.size(); ++i) {
            line += i + 1 < keys.size() ? row.at(i).leftJustified(i == 0 ? 18 : 13) : row.at(i);
            object.insert(keys.at(i), row.at(i));
        }
        array.append(object);
        if (!asJson) {
            std::puts(qPrintable(line.trimmed()));
        }
    }
    if (asJson) {
        std::fputs(QJsonDocument(array).toJson().constData(), stdout);
    }
}

void listPromises(bool asJson)
{
    QVector<Row> rows;
    for (const Promise &promise : allPromises()) {
        rows.append({QLatin1String(promise.name), QLatin1String(promise.text)});
    }
    print({QStringLiteral("promise"), QStringLiteral("text")}, rows, asJson);
}

/// Returns the folder of the libraries that this program was built or installed with.
QString defaultFolder()
{
    const QDir programFolder(QCoreApplication::applicationDirPath());
    const QStringList folders = QStringLiteral(HOSTCHECK_FOLDERS).split(QLatin1Char(':'));
    for (const QString &folder : folders) {
        if (QFileInfo::exists(programFolder.absoluteFilePath(folder % QStringLiteral("/libbasemodule.so")))) {
            return QDir::cleanPath(programFolder.absoluteFilePath(folder));
        }
    }
    return QDir::cleanPath(programFolder.absoluteFilePath(folders.constLast()));
}

/// Returns an empty text, or the reason why the libraries cannot be loaded.
QString load(const QString &folder, unsigned seconds)
{
    const auto tried = runIsolated([&folder] { return loadHostLibraries(folder).toUtf8(); }, seconds);
    if (const auto *const failure = std::get_if<ChildFailure>(&tried)) {
        return QStringLiteral("loading the libraries in %1 %2").arg(folder, QString::fromUtf8(failure->text));
    }
    const QString error = QString::fromUtf8(std::get<QByteArray>(tried));
    return error.isEmpty() ? loadHostLibraries(folder) : error;
}

/// Returns a line with the result, "kept", "broken" or "not checked", and then the reason.
QByteArray check(const Promise &promise, const Owners &owners)
{
    try {
        promise.check(owners);
        return QByteArrayLiteral("kept\n");
    } catch (const BrokenPromise &broken) {
        return "broken\n" + broken.text.toUtf8();
    } catch (const MissingSymbol &missing) {
        return "not checked\nneeds " + missing.text.toUtf8();
    }
}

/// Returns the name of the promise, the result and the reason.
Row verdict(const Promise &promise, const Owners &owners, unsigned seconds)
{
    const QString name = QString::fromLatin1(promise.name);
    const auto report = runIsolated([&] { return check(promise, owners); }, seconds);
    if (const auto *const failure = std::get_if<ChildFailure>(&report)) {
        return {name, QStringLiteral("broken"), QStringLiteral("the host ") % QString::fromUtf8(failure->text)};
    }
    const QString text = QString::fromUtf8(std::get<QByteArray>(report));
    return {name, text.section(QLatin1Char('\n'), 0, 0), text.section(QLatin1Char('\n'), 1)};
}

QVector<Row> verdicts(const Owners &owners, unsigned seconds)
{
    QVector<Row> rows;
    QStringList kept;
    for (const Promise &promise : allPromises()) {
        const auto isMissing = [&kept](const QString &needed) { return !kept.contains(needed); };
        const auto missing = std::find_if(promise.needs.begin(), promise.needs.end(), isMissing);
        if (missing == promise.needs.end()) {
            rows.append(verdict(promise, owners, seconds));
        } else {
            rows.append(
                {QLatin1String(promise.name), QStringLiteral("not checked"), QStringLiteral("needs ") % *missing});
        }
        if (rows.constLast().at(1) == QLatin1String("kept")) {
            kept.append(rows.constLast().constFirst());
        }
    }
    return rows;
}

ExitStatus run(const QCommandLineParser &parser, const Options &options)
{
    bool isNumber = false;
    const unsigned seconds = parser.value(options.timeout).toUInt(&isNumber);
    const Owners owners{parser.value(options.owner), parser.value(options.other)};
    if (!isNumber || seconds == 0) {
        complain(QStringLiteral("--timeout: expected a number of at least 1"));
        return Failure;
    }
    if (owners.station.isEmpty() || owners.other.isEmpty() || owners.station == owners.other) {
        complain(QStringLiteral("--owner, --other-owner: expected two different keys that are not empty"));
        return Failure;
    }
    const QStringList folders = parser.positionalArguments();
    if (folders.size() > 1) {
        complain(QStringLiteral("expected at most one FOLDER; see --help"));
        return Failure;
    }
    if (const QString error = load(folders.isEmpty() ? defaultFolder() : folders.constFirst(), seconds);
        !error.isEmpty()) {
        complain(error);
        return Failure;
    }
    const QVector<Row> rows = verdicts(owners, seconds);
    print({QStringLiteral("promise"), QStringLiteral("result"), QStringLiteral("text")}, rows,
          parser.isSet(options.json));
    const bool isKept =
        std::all_of(rows.begin(), rows.end(), [](const Row &row) { return row.at(1) == QLatin1String("kept"); });
    return isKept ? Kept : Broken;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Checks whether the host libraries basemodule and helpsharemodule keep the promises that the\n"
        "plug-in relies on. Prints a line per promise: its name, \"kept\", \"broken\" or \"not checked\",\n"
        "and the reason. A promise is not checked if its check needs a broken one. A crash, an exception\n"
        "or a hang of the host breaks the promise.\n\n"
        "Exit status:\n"
        "  0  All promises are kept.\n"
        "  1  A promise is broken.\n"
        "  2  The command line is invalid, the libraries cannot be loaded or the output cannot be written.\n\n"
        "Examples:\n"
        "  $ hostcheck\n"
        "  $ hostcheck --owner line-1 --other-owner line-2 host/lib"));
    const Options options;
    parser.addPositionalArgument(QStringLiteral("[FOLDER]"),
                                 QStringLiteral("Folder with libbasemodule.so and libhelpsharemodule.so (default: the "
                                                "libraries that this program was installed with)."));
    processArguments(parser, "hostcheck", {options.json, options.list, options.owner, options.other, options.timeout});
    if (parser.isSet(options.list)) {
        listPromises(parser.isSet(options.json));
        return statusAfterOutput(Kept);
    }
    try {
        return statusAfterOutput(run(parser, options));
    } catch (const std::system_error &error) {
        complain(QString::fromLocal8Bit(error.what()));
        return Failure;
    }
}
