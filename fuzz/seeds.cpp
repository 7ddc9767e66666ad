// Writes the initial inputs of the fuzz targets: seeds FOLDER writes the golden blocks into one folder per format, a
// catalog with their types, project files, steps of a host, and the dictionaries.
#include "goldenblocks.h"
#include "metformat.h"
#include "projectdatabase.h"
#include "projectfile.h"

#include <QCoreApplication>
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

/// Returns texts that SQLite or Qt convert: byte order marks, unpaired surrogates and the two characters after U+FFFD.
QByteArray textDictionary()
{
    QByteArray lines;
    for (const char *digits : {"EFBBBF", "EFBFBF", "FFFE", "FEFF", "FFFF", "00D8", "00DC"}) {
        lines += dictionaryLine(QByteArray::fromHex(digits));
    }
    return lines;
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

/// Writes a project file of the version with the smallest pages that have room for its list of tables.
void writeProject(const QString &path, int version)
{
    Project project;
    project.plcType = 2;
    project.modules.push_back({Place::at(33), 13395, QStringLiteral("a"), QByteArray(8, '\1'), {}});
    QFile::remove(path);
    ProjectDatabase database(path);
    database.run(QStringLiteral("PRAGMA page_size = 1024"));
    bool isWritten = database.create(project);
    if (version == ProjectFile::versionWithoutProperties) {
        isWritten = isWritten && database.run(QStringLiteral("DROP TABLE properties")) &&
                    database.run(QStringLiteral("PRAGMA user_version = 1")) &&
                    database.run(QStringLiteral("UPDATE station SET sha256 = ?"),
                                 {QVariantList{projectChecksum(project, version)}});
    }
    if (!isWritten || !database.run(QStringLiteral("VACUUM"))) {
        std::fprintf(stderr, "%s\n", qPrintable(database.errorString()));
        std::exit(EXIT_FAILURE);
    }
}

/// The files, and the description of one with a module and a changed column for fuzz_projectfile.
void writeProjects(const QString &folder)
{
    QDir().mkpath(folder);
    for (const int version : {1, 2}) {
        writeProject(folder + QStringLiteral("/version%1").arg(version), version);
    }
    const QByteArray head = QByteArray(3, '\0') + be32(2) + "\1a\1b\1c\1d";
    const QByteArray module = be32(33).right(3) + be32(13395).right(2) + "\1e\2fg";
    writeFile(folder + QStringLiteral("/described"), head + module);
    writeFile(folder + QStringLiteral("/changed"), head + module + "\1\7\3\2");
}

/// Steps for fuzz_exports: a module is created, placed, edited, written in both formats, released and read again.
void writeSteps(const QString &folder)
{
    const QByteArray placed = QByteArray("\4\0\1\0\2", 5) + QByteArray(6, '\3');
    const QByteArray written("\5\0\0\5\0\1", 6);
    for (char type = 0; type < 18; ++type) {
        const QByteArray created = QByteArray("\1\0", 2) + type + '\0';
        const QByteArray edited = QByteArray("\10\0\0\0\2\0\0\100\2\0", 10) + type + QByteArray("\0\7", 2);
        const QByteArray readAgain("\7\0\2\0\0\2\1\0\6\0\3\0\0\0\31\1", 16);
        writeFile(QStringLiteral("%1/%2").arg(folder).arg(int(type)), created + placed + edited + written + readAgain);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: seeds FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const QCoreApplication application(argc, argv); // Qt's database drivers need it
    const QString folder = QFile::decodeName(argv[1]);
    for (int i = 0; i < goldens().size(); ++i) {
        const QByteArray state = goldenBlock(goldens().at(i), true);
        const QByteArray block = goldenBlock(goldens().at(i), false);
        writeFile(QStringLiteral("%1/saved/%2").arg(folder).arg(i), state);
        writeFile(QStringLiteral("%1/configuration/%2").arg(folder).arg(i), block);
        writeFile(QStringLiteral("%1/inspected/saved-%2").arg(folder).arg(i), '\0' + state);
        writeFile(QStringLiteral("%1/inspected/configuration-%2").arg(folder).arg(i), '\1' + block);
    }
    writeSteps(folder + QStringLiteral("/steps"));
    writeProjects(folder + QStringLiteral("/projects"));
    writeCatalog(folder + QStringLiteral("/catalog"));
    writeFile(folder + QStringLiteral("/keys.dict"), keyDictionary());
    writeFile(folder + QStringLiteral("/texts.dict"), textDictionary());
    writeFile(folder + QStringLiteral("/blocks.dict"), blockDictionary());
    return EXIT_SUCCESS;
}
