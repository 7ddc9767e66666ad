// blockinspect: prints what a module's block holds, or in what two of them differ.
#include "blockreport.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace {

using namespace blockdecoder;

enum ExitStatus { Success = 0, Different = 1, Failure = 2 };

struct Options {
    QCommandLineOption config{QStringLiteral("config"),
                              QStringLiteral("The data are configuration blocks, one behind the other; without this "
                                             "option, one saved state.")};
    QCommandLineOption hex{QStringLiteral("hex"),
                           QStringLiteral("The data are hexadecimal text; white space does not count.")};
    QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Print JSON instead of text.")};
    QCommandLineOption diff{QStringLiteral("diff"),
                            QStringLiteral("Print only the fields in which FILE and OTHER differ."),
                            QStringLiteral("OTHER")};
};

void complain(const QString &message)
{
    std::fputs(qPrintable(QStringLiteral("blockinspect: %1\n").arg(message)), stderr);
}

void print(const QByteArray &utf8)
{
    std::fwrite(utf8.constData(), 1, static_cast<std::size_t>(utf8.size()), stdout);
}

bool readFile(const QString &path, QByteArray &bytes)
{
    const bool isStandardInput = path == QLatin1String("-");
    QFile file(path);
    if (!(isStandardInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly))) {
        complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return false;
    }
    bytes = file.read(maximumFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        complain(QStringLiteral("%1: %2").arg(path, file.errorString()));
        return false;
    }
    if (bytes.size() > maximumFileSize) {
        complain(QStringLiteral("%1: larger than %2 bytes, the limit for blocks").arg(path, QString::number(maximumFileSize)));
        return false;
    }
    return true;
}

bool isSpace(char character)
{
    return QChar::isSpace(static_cast<uchar>(character));
}

bool isHexDigit(char character)
{
    return QByteArrayLiteral("0123456789abcdefABCDEF").contains(character);
}

bool takeHex(const QString &path, QByteArray &bytes)
{
    const auto *const wrong = std::find_if(
        bytes.cbegin(), bytes.cend(), [](char character) { return !isSpace(character) && !isHexDigit(character); });
    if (wrong != bytes.cend()) {
        complain(QStringLiteral("%1: no hexadecimal digit at character %2")
                     .arg(path, QString::number(wrong - bytes.cbegin() + 1)));
        return false;
    }
    bytes.truncate(static_cast<int>(std::remove_if(bytes.begin(), bytes.end(), isSpace) - bytes.begin()));
    if (bytes.size() % 2 != 0) {
        complain(QStringLiteral("%1: an odd number of hexadecimal digits").arg(path));
        return false;
    }
    bytes = QByteArray::fromHex(bytes);
    return true;
}

bool readBlocks(const QString &path, const QCommandLineParser &parser, const Options &options,
                QVector<DecodedBlock> &blocks)
{
    QByteArray bytes;
    if (!readFile(path, bytes) || (parser.isSet(options.hex) && !takeHex(path, bytes))) {
        return false;
    }
    blocks = decode(bytes, parser.isSet(options.config) ? Format::Configuration : Format::SavedState);
    return true;
}

bool isDamaged(const QVector<DecodedBlock> &blocks)
{
    return std::any_of(blocks.cbegin(), blocks.cend(),
                       [](const DecodedBlock &block) { return !block.damages.isEmpty(); });
}

template <class Report>
void printReport(const Report &report, bool json)
{
    print(json ? QJsonDocument(toJson(report)).toJson() : toText(report).toUtf8());
}

int compareFiles(const QString &path, const QCommandLineParser &parser, const Options &options)
{
    const QString other = parser.value(options.diff);
    if (path == other && path == QLatin1String("-")) {
        complain(QStringLiteral("standard input is there only once"));
        return Failure;
    }
    QVector<DecodedBlock> left;
    QVector<DecodedBlock> right;
    if (!readBlocks(path, parser, options, left) || !readBlocks(other, parser, options, right)) {
        return Failure;
    }
    const QVector<Difference> differences = difference(left, right);
    printReport(differences, parser.isSet(options.json));
    for (const auto &[name, blocks] : {std::pair(path, left), std::pair(other, right)}) {
        if (isDamaged(blocks)) {
            complain(QStringLiteral("%1 is damaged\n%2").arg(name, damageText(blocks).trimmed()));
        }
    }
    if (isDamaged(left) || isDamaged(right)) {
        return Failure;
    }
    return differences.isEmpty() ? Success : Different;
}

int inspectFile(const QString &path, const QCommandLineParser &parser, const Options &options)
{
    QVector<DecodedBlock> blocks;
    if (!readBlocks(path, parser, options, blocks)) {
        return Failure;
    }
    printReport(blocks, parser.isSet(options.json));
    return isDamaged(blocks) ? Failure : Success;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("blockinspect"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints every field of a module's block: offset, bytes, name, value and what it means to the module.\n"
        "Reads what the plug-in reads from the block, and says where a damaged one stops making sense.\n"
        "Needs no catalog. Names are decoded in the encoding of the locale; the output is UTF-8.\n\n"
        "Exit status: 0 the block makes sense, or the two are equal; 1 the two differ; 2 a block is\n"
        "damaged, a file cannot be read or the command line is wrong.\n\n"
        "Examples:\n"
        "  blockinspect module.state\n"
        "  blockinspect --config --json station.block\n"
        "  blockinspect before.state --diff after.state"));
    const Options options;
    parser.addOptions({options.config, options.hex, options.json, options.diff});
    const QCommandLineOption help = parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The block; - is standard input."));
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(parser.errorText());
        return Failure;
    }
    if (parser.isSet(help)) {
        parser.showHelp(Success);
    }
    if (parser.positionalArguments().size() != 1) {
        complain(QStringLiteral("one FILE is wanted; --help tells more"));
        return Failure;
    }
    const QString path = parser.positionalArguments().constFirst();
    return parser.isSet(options.diff) ? compareFiles(path, parser, options) : inspectFile(path, parser, options);
}
