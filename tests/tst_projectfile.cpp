// The project file is complete or rejected, also when it is damaged or its writer is killed.
#include "fastfolder.h"
#include "files.h"
#include "projectfile.h"
#include "projectrecovery.h"
#include "projecttexts.h"
#include "rows.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <array>
#include <csignal>
#include <functional>
#include <limits>
#include <linux/capability.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using Damage = std::function<void(const QString &path)>;
Q_DECLARE_METATYPE(Damage)

namespace {

/// The states are arbitrary, because no plug-in reads them.
Project projectOf(int modules, char fill)
{
    Project project;
    project.plcType = static_cast<quint32>(fill);
    project.properties.title = QString(QChar(fill));
    for (int i = 0; i < modules; ++i) {
        project.modules.push_back({Place::at(i * 5), 13650, QString(QChar(fill)), QByteArray(100 + i, fill), {}});
    }
    return project;
}

void overwrite(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be written", qPrintable(path));
    }
}

void execute(const QString &path, const QStringList &statements)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(path);
        database.open(); // on a failure the statements fail
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            if (!query.exec(statement)) {
                qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
            }
        }
    }
    QSqlDatabase::removeDatabase("test");
}

const Project oldProject = projectOf(150, 'o');
const Project newProject = projectOf(200, 'n');

QByteArray contentsIn(const QString &folder)
{
    QByteArray contents;
    for (const QString &file : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        contents += file.toUtf8() + ':' + contentOf(folder + '/' + file);
    }
    return contents;
}

constexpr int notTraced = -2;

/// Saves in a child process that is killed after it has changed the folder @p last times. The child stops before and
/// after each system call, so every state of the disk that it can leave occurs at a stop. Returns the number of
/// changes, -1 if the child did not save, or notTraced in a container that forbids it.
int saveUntil(int last, const QString &path, const Project &project)
{
    QByteArray contents = contentsIn(QFileInfo(path).path());
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(-notTraced);
        }
        _exit(raise(SIGSTOP) == 0 && ProjectFile(path).write(project) ? 0 : 1);
    }
    int status = 0;
    int changes = 0;
    while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        const QByteArray before = std::exchange(contents, contentsIn(QFileInfo(path).path()));
        changes += contents == before ? 0 : 1;
        if (changes < last) {
            ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        } else {
            kill(child, SIGKILL);
        }
    }
    return WIFSIGNALED(status) || WEXITSTATUS(status) == 0 ? changes : -WEXITSTATUS(status);
}

/// While the result exists, no file of this process can grow beyond @p bytes. This simulates a full disk, also for
/// root.
auto fullDisk(rlim_t bytes)
{
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{bytes, before.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    return qScopeGuard([before] { setrlimit(RLIMIT_FSIZE, &before); });
}

/// Until the guard is destroyed, nothing can be created in the folder. Root loses the capability to ignore permissions.
auto readOnly(const QByteArray &folder)
{
    chmod(folder.constData(), 0555);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> before{};
    syscall(SYS_capget, &header, before.data());
    auto reduced = before;
    reduced[0].effective &= ~(1U << CAP_DAC_OVERRIDE);
    syscall(SYS_capset, &header, reduced.data());
    return qScopeGuard([=]() mutable {
        syscall(SYS_capset, &header, before.data());
        chmod(folder.constData(), 0755);
    });
}

} // namespace

class TestProjectFile : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder{fastFolder()};
    QString m_path = m_folder.filePath("test.station");

    QStringList content() const { return textsOf(ProjectFile(m_path).read()); }
    QStringList backup() const { return textsOf(ProjectFile(ProjectFile(m_path).backupPath()).read()); }
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

private slots:
    void cleanup()
    {
        QVERIFY(QDir(m_folder.path()).removeRecursively() && QDir().mkdir(m_folder.path()));
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void keepsAProject()
    {
        Project project = projectOf(3, 'x');
        project.modules[0].name = QStringLiteral(u"\u00e4 \u4e2d");
        project.modules[1].name = QString();
        project.properties = {"Title", {}, "", "Notes"};
        project.modules[2].state = QByteArray(StoredModule::maximumStateSize, '\0');
        QStringList previous;
        for (const Project &written : {oldProject, project, Project(), newProject}) {
            QCOMPARE(ProjectFile(m_path).write(written).reason(), QString());
            QCOMPARE(content(), textsOf(written));
            QVERIFY(previous.isEmpty() || backup() == previous);
            previous = textsOf(written);
        }
        QCOMPARE(files(), (QStringList{"test.station", "test.station.bak"}));
    }

    void canReadTextsThatSqliteConverts()
    {
        const QString mark(QChar::ByteOrderMark);
        const QString converted = QString(QChar(0xD800)) + QChar(0xFFFE) + QChar(0xFFFF) + QChar(0xDC00);
        Project project = projectOf(1, 'x');
        project.properties.notes = project.modules[0].name = mark + mark + 'a' + mark + converted;
        QVERIFY(ProjectFile(m_path).write(project));
        QCOMPARE(*ProjectFile(m_path).write(project, projectChecksum(project)), ProjectFile::Written::Yes);
        const Result<Project> read = ProjectFile(m_path).read();
        QVERIFY2(read, qPrintable(read.reason()));
        QCOMPARE(read->properties.notes, 'a' + mark + QString(4, QChar::ReplacementCharacter));
        QCOMPARE(read->modules[0].name, read->properties.notes);
    }

    /// Each process adds 1 to the PLC type, again when another process was faster.
    void processesLoseNoChange()
    {
        constexpr int processes = 3;
        constexpr quint32 changes = 20;
        QVERIFY(ProjectFile(m_path).write(Project()));
        for (int i = 0; i < processes; ++i) {
            if (fork() == 0) {
                quint32 done = 0;
                for (int tries = 0; tries < 10000 && done < changes; ++tries) {
                    Result<Project> project = ProjectFile(m_path).read();
                    const QString expected = project ? projectChecksum(*project) : QString();
                    project = project ? (++project->plcType, project) : project;
                    const auto written = project ? ProjectFile(m_path).write(*project, expected) : project.failure();
                    done += written && *written == ProjectFile::Written::Yes ? 1U : 0U;
                }
                _exit(0);
            }
        }
        while (wait(nullptr) > 0) {
        }
        QCOMPARE(ProjectFile(m_path).read()->plcType, processes * changes);
    }

    /// The file is as the program wrote it before files had properties.
    void replacesAFileOfVersion1()
    {
        QVERIFY(QFile::copy(TEST_DATA "/version1.station", m_path));
        Result<Project> project = ProjectFile(m_path).read();
        QVERIFY2(project, qPrintable(project.reason()));
        QCOMPARE(project->modules.size(), std::size_t{3});
        QCOMPARE(project->modules[2].typeCode, 13397U);
        QVERIFY(project->properties == ProjectProperties());
        project->properties = {"Title", QStringLiteral(u"\u4e2d"), "1", "Line\nline"};
        QCOMPARE(ProjectFile(m_path).write(*project).reason(), QString());
        QCOMPARE(content(), textsOf(*project));
        QCOMPARE(contentOf(m_path).at(63), '\2'); // the version in the header
    }

    void rejectsDamagedFiles_data()
    {
        const Rows<QString, int, Damage> row("reason", "recovered", "damage"); // of 150 modules
        const auto sql = [&row](const char *name, const QStringList &statements, const char *reason, int recovered) {
            row(name, reason, recovered, [statements](const QString &path) { execute(path, statements); });
        };
        const auto bytes = [&row](const char *name, const char *reason, int recovered,
                                  const std::function<QByteArray(QByteArray)> &change) {
            row(name, reason, recovered, [change](const QString &path) { overwrite(path, change(contentOf(path))); });
        };
        bytes("an empty file", "not a station file", 0, [](const QByteArray &) { return QByteArray(); });
        bytes("another format", "not a station file", 150,
              [](QByteArray f) { return f.replace(0, 8, "\x89PNG\r\n\x1a\n"); });
        bytes("truncated in its header", "not a station file", 0, [](const QByteArray &f) { return f.left(99); });
        bytes("truncated to its half", "damaged", 55, [](const QByteArray &f) { return f.left(f.size() / 2); });
        bytes("a page of zeros", "damaged", 120,
              [](QByteArray f) { return f.replace(16384, 4096, QByteArray(4096, 0)); });
        bytes("a changed state", "checksum", 150,
              [](QByteArray f) { return f.replace(f.lastIndexOf("oooooooo"), 1, "p"); });
        row("too large", "too large", 0, [](const QString &path) { QFile::resize(path, 65 << 20); }); // takes no space
        row("a folder", "not a station", 0, [](const QString &path) { QFile::remove(path) && QDir().mkdir(path); });
        sql("another program's database", {"PRAGMA application_id = 0"}, "another program", 150);
        sql("another version", {"PRAGMA user_version = 3"}, "version 3", 150);
        sql("a missing table", {"DROP TABLE module"}, "tables", 0);
        sql("a view in place of a table", {"DROP TABLE module", "CREATE VIEW module AS SELECT 1"}, "tables", 0);
        sql("a trigger", {"CREATE TRIGGER t AFTER DELETE ON module BEGIN DELETE FROM station; END"}, "tables", 150);
        sql("a missing station", {"DELETE FROM station"}, "checksum", 150);
        sql("a changed name", {"UPDATE module SET name = 'x' WHERE place = 5"}, "checksum", 150);
        sql("changed properties", {"UPDATE properties SET notes = 'x'"}, "checksum", 150);
        sql("an older version number", {"PRAGMA user_version = 1"}, "tables", 150);
        sql("a missing module", {"DELETE FROM module WHERE place = 5"}, "checksum", 149);
        sql("a module at another place", {"UPDATE module SET place = 1, slot = 1 WHERE place = 0"}, "checksum", 150);
        const QString unchecked = "PRAGMA ignore_check_constraints = ON";
        sql("an invalid place", {unchecked, "UPDATE module SET slot = 32 WHERE place = 0"}, "invalid values", 149);
        sql("a fraction of a rack", {"UPDATE module SET rack = 0.5, slot = 4 WHERE place = 20"}, "invalid values", 149);
        sql("an empty state", {unchecked, "UPDATE module SET state = x''"}, "invalid values", 0);
    }
    void rejectsDamagedFiles()
    {
        QFETCH(QString, reason);
        const ProjectFile file(m_path);
        QVERIFY(file.write(oldProject));
        fetched<Damage>("damage")(m_path);
        const QByteArray damaged = contentOf(m_path);
        const QString readReason = file.read().reason();
        QVERIFY2(readReason.contains(reason), qPrintable(readReason));
        QCOMPARE(file.write(newProject).reason(), readReason);
        QVERIFY(contentOf(m_path) == damaged);
        const Result<RecoveredProject> recovered = recoverProject(m_path);
        QTEST(recovered ? int(recovered->project.modules.size()) : 0, "recovered");
    }

    void recoversWhatADamagedPageLeaves()
    {
        QVERIFY(ProjectFile(m_path).write(oldProject));
        const QByteArray before = contentOf(m_path);
        const QStringList expected = textsOf(oldProject);
        int complete = 0;
        for (int page = 0; page < before.size(); page += 4096) {
            overwrite(m_path, QByteArray(before).replace(page, 4096, QByteArray(4096, '\xff')));
            const Result<RecoveredProject> recovered = recoverProject(m_path);
            const QStringList found = recovered ? textsOf(recovered->project) : QStringList();
            QVERIFY(std::all_of(found.begin(), found.end(), [&](const QString &text) {
                return expected.contains(text) || text == "0"; // the PLC type is lost
            }));
            complete += found == expected ? 1 : 0;
            const bool reportsGap = !recovered || recovered->losses.join(' ').contains("are lost");
            QVERIFY(found.size() == expected.size() || reportsGap);
        }
        QCOMPARE(complete, 1); // the first page
    }

    void isUnchangedWhenItCannotBeWritten()
    {
        QVERIFY(ProjectFile(m_path).write(oldProject));
        const QByteArray before = contentOf(m_path);
        const QString report = m_folder.filePath("test.html");
        const QByteArray text = "text" + before;
        overwrite(report, text);
        const auto check = [&](const char *reason) -> QString {
            const QStringList reasons{ProjectFile(m_path).write(newProject).reason(),
                                      ProjectFile(m_folder.filePath("new.station")).write(newProject).reason(),
                                      writeFile(report, text + "x").reason()};
            const bool isUnchanged =
                contentOf(m_path) == before && content() == textsOf(oldProject) && contentOf(report) == text;
            return reasons.filter(QRegularExpression(reason)) == reasons && isUnchanged ? QString()
                                                                                        : reasons.join('\n');
        };
        {
            const auto guard = readOnly(QFile::encodeName(m_folder.path()));
            QCOMPARE(check("folder|denied|protected"), QString());
        }
        for (rlim_t limit = 0; limit < 36864; limit += 1024) {
            const auto guard = fullDisk(limit);
            QCOMPARE(check("full|too large"), QString());
        }
        QVERIFY(files().filter("tmp").isEmpty());
    }

    void reportsAFolderThatDoesNotExist()
    {
        QVERIFY(ProjectFile(m_path).write(oldProject));
        for (const char *path : {"test.station/x.station", "no folder/x.station"}) {
            QVERIFY(ProjectFile(m_folder.filePath(path)).write(newProject).reason().contains("folder does not exist"));
        }
    }

    void explainsWhichNamesAProjectCannotHave_data()
    {
        const Rows<QString, QString, bool> row("name", "reason", "isReadable");
        row("the longest", QString(210, 'x'), {}, true);
        row("longer", QString(211, 'x'), "has 211 bytes. That of a project can have at most 210 bytes.", true);
        row("longer in bytes", QString(71, QChar(0x4e2d)), "has 213 bytes", true);
        row("the name of a resource", ":x.station", "needs its folder, such as ./:x.station.", false);
        row("with its folder", "./:x.station", {}, true);
    }
    void explainsWhichNamesAProjectCannotHave()
    {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        QVERIFY(QDir::setCurrent(m_folder.path()));
        const QString written = ProjectFile(name).write(oldProject).reason();
        QVERIFY2(reason.isEmpty() ? written.isEmpty() : written.contains(reason), qPrintable(written));
        QCOMPARE(files().size(), reason.isEmpty() ? 1 : 0);
        QVERIFY(ProjectFile(m_path).write(oldProject));
        QVERIFY(QFile::remove(m_folder.filePath(name)) || !reason.isEmpty());
        QVERIFY(QFile::rename(m_path, m_folder.path() + '/' + name));
        const QString read = ProjectFile(name).read().reason();
        QVERIFY2(fetched<bool>("isReadable") ? read.isEmpty() : read.contains(reason), qPrintable(read));
    }

    void writesToAPipeInsteadOfReplacingIt()
    {
        std::array<int, 2> pipeEnds{};
        char byte = 0;
        QVERIFY(pipe(pipeEnds.data()) == 0 && writeFile(QString("/dev/fd/%1").arg(pipeEnds[1]), "x"));
        QVERIFY(::read(pipeEnds[0], &byte, 1) == 1 && byte == 'x');
    }

    void isCompleteWhenItsWriterIsKilled_data()
    {
        const Rows<bool> row("asNewFile");
        row("in place", false);
        row("as a new file", true);
    }
    void isCompleteWhenItsWriterIsKilled()
    {
        QFETCH(bool, asNewFile);
        QVERIFY(asNewFile || ProjectFile(m_path).write(oldProject));
        const QByteArray before = contentOf(m_path);
        const int changes = saveUntil(std::numeric_limits<int>::max(), m_path, newProject);
        if (changes == notTraced) {
            QSKIP("ptrace is forbidden here: no writer can be stopped at a system call and killed");
        }
        QVERIFY(changes > 20 && content() == textsOf(newProject));
        QMap<QByteArray, int> outcomes;
        for (int last = 0; last <= changes; ++last) {
            QVERIFY(asNewFile ? QFile::remove(m_path) : (overwrite(m_path, before), true));
            QCOMPARE(saveUntil(last, m_path, newProject), last);
            ++outcomes[files().filter(QRegularExpression("tmp|journal")).isEmpty() ? "clean" : "midway"];
            QVERIFY(!files().contains("test.station.bak") || backup() == textsOf(oldProject));
            const QStringList found = content();
            ++outcomes[found == textsOf(newProject) ? "new" : "old"];
            QVERIFY2(found == textsOf(newProject) ||
                         (asNewFile ? !QFile::exists(m_path) : found == textsOf(oldProject)),
                     qPrintable(found.join('\n')));
            QVERIFY(ProjectFile(m_path).write(oldProject));
            QCOMPARE(content(), textsOf(oldProject));
            QVERIFY(files().filter(QRegularExpression("tmp|journal")).isEmpty());
            QFile::remove(ProjectFile(m_path).backupPath());
        }
        QCOMPARE(outcomes.size(), 4);
    }
};

QTEST_GUILESS_MAIN(TestProjectFile)
#include "tst_projectfile.moc"
