// Writes the initial inputs of the fuzz targets: seeds FOLDER writes the golden blocks into one folder per format, a
// catalog with their types, and one dictionary per kind of input.
#include "goldenblocks.h"
#include "metformat.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace blockbuilder;

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!QFileInfo(path).dir().mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
}

/// The entries have minimum length, because an execution reads one up to twice. Each byte of the module info is the
/// number of channels of one kind.
void writeCatalog(const QString &folder)
{
    for (const Golden &golden : goldens()) {
        const QByteArray code = be32(golden.objId).toHex().toUpper();
        writeFile(folder + QStringLiteral("/6/hw%1.met").arg(QString::fromLatin1(code)),
                  "ObjID=" + code + "\nServerFile=a\nModuleInfo=01010101\n[END]\n");
    }
    writeFile(folder + QStringLiteral("/9/a"), {});
}

/// Returns a line of a dictionary with each byte as a number.
QByteArray dictionaryLine(const QByteArray &bytes)
{
    return "\"\\x" + bytes.toHex(':').replace(":", "\\x") + "\"\n";
}

QByteArray keyDictionary()
{
    QByteArray lines = dictionaryLine("[MODULE START]") + dictionaryLine("[END]");
    for (const MetKey &key : metKeys) {
        lines += dictionaryLine(QByteArray(key.name.data(), key.name.size()) + '=');
    }
    return lines;
}

/// Returns type codes and the frames of sections.
QByteArray blockDictionary()
{
    QByteArray lines;
    for (const Golden &golden : goldens()) {
        lines += dictionaryLine(be32(golden.objId));
        for (const QByteArray &section : golden.sections) {
            lines += dictionaryLine(section.mid(4, 5));
        }
    }
    return lines;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: seeds FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const QString folder = QFile::decodeName(argv[1]);
    for (int i = 0; i < goldens().size(); ++i) {
        const QByteArray state = goldenBlock(goldens().at(i), true);
        const QByteArray block = goldenBlock(goldens().at(i), false);
        writeFile(QStringLiteral("%1/saved/%2").arg(folder).arg(i), state);
        writeFile(QStringLiteral("%1/configuration/%2").arg(folder).arg(i), block);
        writeFile(QStringLiteral("%1/inspected/saved-%2").arg(folder).arg(i), '\0' + state);
        writeFile(QStringLiteral("%1/inspected/configuration-%2").arg(folder).arg(i), '\1' + block);
    }
    writeCatalog(folder + QStringLiteral("/catalog"));
    writeFile(folder + QStringLiteral("/keys.dict"), keyDictionary());
    writeFile(folder + QStringLiteral("/blocks.dict"), blockDictionary());
    return EXIT_SUCCESS;
}
