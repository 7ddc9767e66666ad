// The workbench's project file: whole or refused, whatever happens to it or to its writer.
#include "projectfile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <functional>

using Damage = std::function<void(const QString &path)>;
Q_DECLARE_METATYPE(Damage)

namespace {

/// Any states will do: no plug-in reads them.
Project projectOf(int modules, char fill)
{
    Project project;
    project.plcType = static_cast<quint32>(fill);
    for (int i = 0; i < modules; ++i) {
        project.modules.push_back({Place::at(i * 5), 13650, QString(QChar(fill)), QByteArray(100 + i, fill), {}});
    }
    return project;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        if (!database.open()) {
            qFatal("%s", qPrintable(database.lastError().text()));
        }
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            if (!query.exec(statement)) {
                qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
            }
        }
    }
    QSqlDatabase::removeDatabase("test");
}

bool areSame(const std::optional<Project> &a, const Project &b)
{
    return a && a->plcType == b.plcType &&
           std::equal(a->modules.begin(), a->modules.end(), b.modules.begin(), b.modules.end(),
                      [](const StoredModule &left, const StoredModule &right) {
                          return left.place == right.place && left.typeCode == right.typeCode &&
                                 left.name == right.name && left.state == right.state;
                      });
}

const Project oldProject = projectOf(150, 'o');
const Project newProject = projectOf(200, 'n');

/// What the process does that will be killed: saves one project after the other until then.
int saveForever(const QString &path, bool asNewFile)
{
    QTextStream(stdout) << "saving" << Qt::endl;
    for (bool old = false;; old = !old) {
        if (asNewFile) {
            QFile::remove(path);
        }
        if (!ProjectFile(path).write(old ? oldProject : newProject)) {
            return 1;
        }
    }
}

} // namespace

class tst_ProjectFile : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("test.station");

    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

private slots:
    void cleanup()
    {
        for (const QString &file : files()) {
            QVERIFY(QFile::remove(m_folder.filePath(file)));
        }
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
    }

    void keepsAProject()
    {
        Project project = projectOf(3, 'x');
        project.modules[0].name = QStringLiteral(u"\u00e4 \u4e2d");
        project.modules[1].name = QString();
        project.modules[2].state = QByteArray(StoredModule::largestState, '\0');
        for (const Project &written : {oldProject, project, Project(), newProject}) {
            ProjectFile file(m_path);
            QVERIFY2(file.write(written), qPrintable(file.errorString()));
            QVERIFY2(areSame(file.read(), written), qPrintable(file.errorString()));
            QCOMPARE(files(), QStringList("test.station"));
        }
        QVERIFY(!ProjectFile(m_folder.filePath("no folder/x.station")).write(project));
    }

    void refusesDamagedFiles_data()
    {
        QTest::addColumn<Damage>("damage");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const Damage &damage, const char *reason) {
            QTest::newRow(name) << damage << QString::fromLatin1(reason);
        };
        const auto sql = [&row](const char *name, const QStringList &statements, const char *reason) {
            row(
                name, [statements](const QString &path) { execute(path, statements); }, reason);
        };
        const auto bytes = [&row](const char *name, const std::function<QByteArray(QByteArray)> &change,
                                  const char *reason) {
            row(
                name, [change](const QString &path) { overwrite(path, change(contentOf(path))); }, reason);
        };
        bytes(
            "an empty file", [](const QByteArray &) { return QByteArray(); }, "not a station file");
        bytes(
            "another kind of file", [](const QByteArray &) { return QByteArray(5000, 'x'); }, "not a station file");
        bytes(
            "cut in its header", [](const QByteArray &file) { return file.left(99); }, "not a station file");
        bytes(
            "cut in half", [](const QByteArray &file) { return file.left(file.size() / 2); }, "damaged");
        bytes(
            "a page of zeros", [](QByteArray file) { return file.replace(3 * 4096, 4096, QByteArray(4096, '\0')); },
            "damaged");
        bytes(
            "a changed state", [](QByteArray file) { return file.replace(file.lastIndexOf("oooooooo"), 1, "p"); },
            "checksum");
        row(
            "too large", [](const QString &path) { QFile::resize(path, 65LL << 20); }, "too large");
        sql("another program's database", {"PRAGMA application_id = 7"}, "another program");
        sql("another version", {"PRAGMA user_version = 2"}, "version 2");
        sql("a table less", {"DROP TABLE module"}, "tables");
        sql("a view in place of a table", {"DROP TABLE module", "CREATE VIEW module AS SELECT 1"}, "tables");
        sql("a trigger", {"CREATE TRIGGER t AFTER DELETE ON module BEGIN DELETE FROM station; END"}, "tables");
        sql("without its station", {"DELETE FROM station"}, "checksum");
        sql("a module less", {"DELETE FROM module WHERE place = 5"}, "checksum");
        sql("a module elsewhere", {"UPDATE module SET place = 1, slot = 1 WHERE place = 0"}, "checksum");
        sql("a place that is none",
            {"PRAGMA ignore_check_constraints = ON", "UPDATE module SET slot = 32 WHERE place = 0"}, "CHECK");
        sql("an empty state", {"PRAGMA ignore_check_constraints = ON", "UPDATE module SET state = x''"}, "CHECK");
    }

    void refusesDamagedFiles()
    {
        QFETCH(Damage, damage);
        QFETCH(QString, reason);
        ProjectFile file(m_path);
        QVERIFY(file.write(oldProject));
        damage(m_path);
        const QByteArray damaged = contentOf(m_path);
        QVERIFY(!file.read());
        QVERIFY2(file.errorString().contains(reason), qPrintable(file.errorString()));
        QVERIFY(!file.write(newProject));
        QVERIFY(contentOf(m_path) == damaged);
    }

    void isWholeWhenItsWriterIsKilled_data()
    {
        QTest::addColumn<bool>("asNewFile");
        QTest::newRow("in place") << false;
        QTest::newRow("as a new file") << true;
    }

    void isWholeWhenItsWriterIsKilled()
    {
        QFETCH(bool, asNewFile);
        QRandomGenerator random(50);
        for (int kill = 0; kill < 25; ++kill) {
            QVERIFY(asNewFile || ProjectFile(m_path).write(oldProject));
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {asNewFile ? "--save-as-new" : "--save-in-place", m_path}, QIODevice::ReadOnly);
            QVERIFY(writer.waitForReadyRead());
            QThread::usleep(static_cast<unsigned long>(random.bounded(40000)));
            writer.kill();
            QVERIFY(writer.waitForFinished());
            QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
            if (asNewFile && !QFile::exists(m_path)) {
                continue;
            }
            ProjectFile file(m_path);
            const std::optional<Project> found = file.read();
            QVERIFY2(areSame(found, oldProject) || areSame(found, newProject), qPrintable(file.errorString()));
            QVERIFY2(file.write(oldProject) && areSame(file.read(), oldProject), qPrintable(file.errorString()));
        }
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1).startsWith("--save-")) {
        return saveForever(arguments.value(2), arguments.value(1) == "--save-as-new");
    }
    tst_ProjectFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_projectfile.moc"
