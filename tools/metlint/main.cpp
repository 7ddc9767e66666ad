// metlint: checks module description files from the command line.
#include "linter.h"

#include "baseservices.h"
#include "commandline.h"
#include "metreader.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextCodec>

#include <cstdio>
#include <optional>

namespace {

enum ExitStatus { Clean = 0, Diagnostics = 1, Failure = exitFailure };

const QLatin1String descriptionFolder("6"); // as the host names its component folders
const QLatin1String componentFolder("9");

struct Options {
    QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Print JSON instead of lines.")};
    QCommandLineOption list{QStringLiteral("list-rules"), QStringLiteral("List the rules and exit.")};
    QCommandLineOption host{
        QStringLiteral("host-version"),
        QStringLiteral("Version number of the host that reads the files (default: %1).").arg(getAppVerNum()),
        QStringLiteral("N"), QString::number(getAppVerNum())};
    QCommandLineOption components{
        QStringLiteral("components"),
        QStringLiteral("Folder of the component files (default: the folder 9 next to that of the description files)."),
        QStringLiteral("DIR")};
    QCommandLineOption encoding{
        QStringLiteral("encoding"),
        QStringLiteral("Encoding of files without a byte-order mark on the host's machine (default: this machine's)."),
        QStringLiteral("NAME")};
};

void printJson(const QJsonArray &array)
{
    std::fputs(QJsonDocument(array).toJson().constData(), stdout);
}

void listRules(bool asJson)
{
    QJsonArray array;
    for (const LintRule &rule : lintRules()) {
        if (asJson) {
            array.append(QJsonObject{{QStringLiteral("rule"), QString::fromLatin1(rule.id)},
                                     {QStringLiteral("severity"), severityName(rule.severity)},
                                     {QStringLiteral("text"), QString::fromLatin1(rule.description)}});
        } else {
            std::printf("%-20s%-9s%s\n", rule.id, qPrintable(severityName(rule.severity)), rule.description);
        }
    }
    if (asJson) {
        printJson(array);
    }
}

QJsonObject toJson(const QString &file, const Diagnostic &diagnostic)
{
    const LintRule &rule = lintRule(diagnostic.rule);
    return {{QStringLiteral("file"), file},
            {QStringLiteral("line"), diagnostic.place.line},
            {QStringLiteral("column"), diagnostic.place.column},
            {QStringLiteral("severity"), severityName(rule.severity)},
            {QStringLiteral("rule"), QString::fromLatin1(rule.id)},
            {QStringLiteral("text"), diagnostic.text}};
}

/// Checks the files and folders of the command line and prints the diagnostics.
class Run {
public:
    Run(LintContext context, bool asJson) : m_context(std::move(context)), m_asJson(asJson) {}

    void lintArgument(const QString &path)
    {
        if (QFileInfo(path).isDir()) {
            lintFolder(path);
        } else {
            lintFile(path);
        }
    }

    ExitStatus finish() const
    {
        if (m_asJson) {
            printJson(m_array);
        }
        if (m_failed) {
            return Failure;
        }
        return m_found ? Diagnostics : Clean;
    }

private:
    void fail(const QString &text)
    {
        m_failed = true;
        complain(text);
    }

    void lintFolder(const QString &path)
    {
        QDir folder(path);
        if (folder.exists(descriptionFolder)) {
            folder.cd(descriptionFolder);
        }
        // Name filters ignore case, so a name in the wrong case is checked, too.
        const QStringList files = folder.entryList({QStringLiteral("hw*.met")}, QDir::Files, QDir::Name);
        if (files.isEmpty()) {
            fail(path % QStringLiteral(": the folder has no description files (hw*.met)"));
        }
        for (const QString &file : files) {
            lintFile(QDir::cleanPath(folder.filePath(file)));
        }
    }

    void lintFile(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            fail(path % QStringLiteral(": ") % file.errorString());
            return;
        }
        QByteArray content;
        QByteArray part;
        do { // a pipe yields its content in parts
            part = file.read(maximumMetFileSize + 1 - content.size());
            content += part;
        } while (!part.isEmpty());
        if (file.error() != QFileDevice::NoError) {
            fail(path % QStringLiteral(": ") % file.errorString());
            return;
        }
        if (content.size() > maximumMetFileSize) {
            fail(path % QStringLiteral(": the file is larger than %1 bytes, the limit for description files")
                            .arg(maximumMetFileSize));
            return;
        }
        const QFileInfo info(path);
        LintContext context = m_context;
        context.fileName = info.fileName();
        context.componentFolder = componentsFor(info.absoluteDir());
        report(path, lint(content, context));
    }

    QString componentsFor(const QDir &descriptions)
    {
        if (!m_context.componentFolder.isEmpty()) {
            return m_context.componentFolder;
        }
        QString beside = QDir::cleanPath(descriptions.absoluteFilePath(QStringLiteral("../") % componentFolder));
        if (QFileInfo(beside).isDir()) {
            return beside;
        }
        if (beside != m_unchecked) {
            complain(QStringLiteral("component files are not checked: there is no folder %1 (see --components)")
                         .arg(beside));
        }
        m_unchecked = beside;
        return {};
    }

    void report(const QString &path, const QVector<Diagnostic> &diagnostics)
    {
        for (const Diagnostic &diagnostic : diagnostics) {
            if (m_asJson) {
                m_array.append(toJson(path, diagnostic));
            } else {
                std::puts(qPrintable(formatDiagnostic(path, diagnostic)));
            }
        }
        m_found = m_found || !diagnostics.isEmpty();
    }

    LintContext m_context; // from the command line, for all files
    bool m_asJson;
    QString m_unchecked; // missing folder of the latest message
    QJsonArray m_array;
    bool m_found = false;
    bool m_failed = false;
};

/// Returns std::nullopt after an error message.
std::optional<LintContext> contextOf(const QCommandLineParser &parser, const Options &options)
{
    bool isNumber = false;
    LintContext context;
    context.hostVersion = parser.value(options.host).toUInt(&isNumber);
    if (!isNumber) {
        complain(QStringLiteral("--host-version: expected a number"));
        return std::nullopt;
    }
    if (parser.isSet(options.encoding)) {
        context.encoding = QTextCodec::codecForName(parser.value(options.encoding).toUtf8());
    }
    if (context.encoding == nullptr) {
        complain(QStringLiteral("unknown encoding ") % parser.value(options.encoding));
        return std::nullopt;
    }
    context.componentFolder = parser.value(options.components);
    if (parser.isSet(options.components) && !QFileInfo(context.componentFolder).isDir()) {
        complain(QStringLiteral("--components: not a folder: ") % context.componentFolder);
        return std::nullopt;
    }
    return context;
}

ExitStatus run(const QCommandLineParser &parser, const Options &options)
{
    const std::optional<LintContext> context = contextOf(parser, options);
    if (!context) {
        return Failure;
    }
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty()) {
        complain(QStringLiteral("expected at least one file or folder; see --help"));
        return Failure;
    }
    Run lintRun(*context, parser.isSet(options.json));
    for (const QString &path : paths) {
        lintRun.lintArgument(path);
    }
    return lintRun.finish();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Reports where the host's result differs from what a module description file appears to say.\n"
                       "Prints file:line:column: severity: text [rule].\n\n"
                       "Exit status:\n"
                       "  0  There are no diagnostics.\n"
                       "  1  There are diagnostics.\n"
                       "  2  The command line is invalid, a file cannot be read or the output cannot be written.\n\n"
                       "Examples:\n"
                       "  $ metlint hw00003453.met\n"
                       "  $ metlint --json --components components descriptions"));
    const Options options;
    parser.addPositionalArgument(
        QStringLiteral("FILE|FOLDER..."),
        QStringLiteral("Description files, folders of them, or the folder that holds the folders 6 and 9."));
    processArguments(parser, "metlint",
                     {options.json, options.list, options.host, options.components, options.encoding});
    if (parser.isSet(options.list)) {
        listRules(parser.isSet(options.json));
        return statusAfterOutput(Clean);
    }
    return statusAfterOutput(run(parser, options));
}
