// blockinspect: prints the fields of a module's block, or the fields in which two blocks differ.
#include "blockreport.h"
#include "commandline.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

using namespace blockdecoder;

enum ExitStatus { Success = 0, Different = 1, Failure = exitFailure };

struct Options {
    QCommandLineOption config{QStringLiteral("config"),
                              QStringLiteral("The data is configuration blocks, one after the other. Without this "
                                             "option it is one saved state.")};
    QCommandLineOption hex{QStringLiteral("hex"),
                           QStringLiteral("The data is hexadecimal text. White space is ignored.")};
    QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Print JSON instead of text.")};
    QCommandLineOption diff{QStringLiteral("diff"),
                            QStringLiteral("Print only the fields in which FILE and OTHER differ."),
                            QStringLiteral("OTHER")};
};

void print(const QByteArray &utf8)
{
    std::fwrite(utf8.constData(), 1, static_cast<std::size_t>(utf8.size()), stdout);
}

/// Reads a file, or standard input if @p path is "-". Returns std::nullopt after an error message.
std::optional<QByteArray> readFile(const QString &path)
{
    const bool isStandardInput = path == QLatin1String("-");
    QFile file(path);
    if (!(isStandardInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly))) {
        complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    QByteArray bytes;
    for (QByteArray part = file.read(maximumFileSize + 1); !part.isEmpty();) { // a pipe may return a part
        bytes += part;
        part = file.read(maximumFileSize + 1 - bytes.size());
    }
    if (file.error() != QFileDevice::NoError) {
        complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    if (bytes.size() > maximumFileSize) {
        complain(QStringLiteral("%1: the file is larger than %2 bytes, the limit for blocks")
                     .arg(path, QString::number(maximumFileSize)));
        return std::nullopt;
    }
    return bytes;
}

bool isSpace(char character)
{
    return QChar::isSpace(static_cast<uchar>(character));
}

bool isHexDigit(char character)
{
    return QByteArrayLiteral("0123456789abcdefABCDEF").contains(character);
}

/// Returns the bytes that @p text spells, or std::nullopt after an error message.
std::optional<QByteArray> parseHex(const QString &path, QByteArray text)
{
    const auto *const wrong = std::find_if(
        text.cbegin(), text.cend(), [](char character) { return !isSpace(character) && !isHexDigit(character); });
    if (wrong != text.cend()) {
        complain(QStringLiteral("%1: character %2 is not a hexadecimal digit")
                     .arg(path, QString::number(wrong - text.cbegin() + 1)));
        return std::nullopt;
    }
    text.truncate(static_cast<int>(std::remove_if(text.begin(), text.end(), isSpace) - text.begin()));
    if (text.size() % 2 != 0) {
        complain(QStringLiteral("%1: the number of hexadecimal digits is odd").arg(path));
        return std::nullopt;
    }
    return QByteArray::fromHex(text);
}

using Blocks = QVector<DecodedBlock>;

/// Returns std::nullopt after an error message.
std::optional<Blocks> readBlocks(const QString &path, const QCommandLineParser &parser, const Options &options)
{
    std::optional<QByteArray> bytes = readFile(path);
    if (bytes && parser.isSet(options.hex)) {
        bytes = parseHex(path, *bytes);
    }
    if (!bytes) {
        return std::nullopt;
    }
    return parser.isSet(options.config) ? decodeConfiguration(*bytes) : Blocks{decodeSavedState(*bytes)};
}

bool isDamaged(const Blocks &blocks)
{
    return std::any_of(blocks.cbegin(), blocks.cend(),
                       [](const DecodedBlock &block) { return !block.damages.isEmpty(); });
}

template <typename Report>
void printReport(const Report &report, bool json)
{
    print(json ? QJsonDocument(toJson(report)).toJson() : toText(report).toUtf8());
}

int compareFiles(const QString &path, const QCommandLineParser &parser, const Options &options)
{
    const QString other = parser.value(options.diff);
    if (path == other && path == QLatin1String("-")) {
        complain(QStringLiteral("standard input can be read only once"));
        return Failure;
    }
    const std::optional<Blocks> left = readBlocks(path, parser, options);
    const std::optional<Blocks> right = left ? readBlocks(other, parser, options) : std::nullopt;
    if (!right) {
        return Failure;
    }
    const QVector<Difference> differences = difference(*left, *right);
    printReport(differences, parser.isSet(options.json));
    for (const auto &[name, blocks] : {std::pair(path, *left), std::pair(other, *right)}) {
        if (isDamaged(blocks)) {
            complain(QStringLiteral("%1 is damaged.\n%2").arg(name, damageText(blocks).trimmed()));
        }
    }
    if (isDamaged(*left) || isDamaged(*right)) {
        return Failure;
    }
    return differences.isEmpty() ? Success : Different;
}

int inspectFile(const QString &path, const QCommandLineParser &parser, const Options &options)
{
    const std::optional<Blocks> blocks = readBlocks(path, parser, options);
    if (!blocks) {
        return Failure;
    }
    printReport(*blocks, parser.isSet(options.json));
    return isDamaged(*blocks) ? Failure : Success;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every field of a module's block: offset, bytes, name, value and meaning.\n"
        "The values are those that the plug-in reads. For a damaged block it reports the first invalid place.\n"
        "No catalog is needed. Names are decoded in the encoding of the locale. The output is UTF-8.\n\n"
        "Exit status:\n"
        "  0  The block is valid, or the two blocks are equal.\n"
        "  1  The two blocks differ.\n"
        "  2  A block is damaged, a file cannot be read or written, or the command line is invalid.\n\n"
        "Examples:\n"
        "  $ blockinspect module.state\n"
        "  $ blockinspect --config --json station.block\n"
        "  $ blockinspect before.state --diff after.state"));
    const Options options;
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("The file with the block; - is standard input."));
    processArguments(parser, "blockinspect", {options.config, options.hex, options.json, options.diff});
    if (parser.positionalArguments().size() != 1) {
        complain(QStringLiteral("expected one FILE; see --help"));
        return Failure;
    }
    const QString path = parser.positionalArguments().constFirst();
    return statusAfterOutput(parser.isSet(options.diff) ? compareFiles(path, parser, options)
                                                        : inspectFile(path, parser, options));
}
