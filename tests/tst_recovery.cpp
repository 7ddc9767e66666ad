// No work is lost: recovery copies of killed programs, changed project files, the modified mark.
#include "autorecovery.h"
#include "fastfolder.h"
#include "files.h"
#include "projecttexts.h"
#include "rows.h"
#include "stationdocument.h"

#include <array>
#include <iostream>

namespace {

constexpr int longestLoss = 2000; // ms

std::unique_ptr<Station> emptyStation(const PluginLibrary &plugin)
{
    return std::make_unique<Station>(plugin, "first");
}

/// Edits until it is killed. Prints the time and the checksum after each edit.
int edit(const QString &folder, const QString &path, quint32 seed)
{
    PluginLibrary plugin;
    static_cast<void>(plugin.load(SIMPLEEXTEND_LIBRARY_PATH));
    StationDocument document(plugin, emptyStation(plugin));
    const AutoRecovery recovery(document, folder);
    if (!path.isEmpty()) {
        static_cast<void>(document.save(path));
    }
    QRandomGenerator random(seed);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        Station &station = document.station();
        const Place place = Place::at(random.bounded(40));
        if (station.moduleAt(place)) {
            document.edits().remove({place});
        } else {
            static_cast<void>(document.edits().add(13650U + random.bounded(7U), place));
        }
        if (!path.isEmpty() && random.bounded(500) == 0) {
            static_cast<void>(document.save(path));
        }
        std::cout << QDateTime::currentMSecsSinceEpoch() << ' ' << qPrintable(projectChecksum(station.project()))
                  << std::endl;
    });
    timer.start(5);
    return QCoreApplication::exec();
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

} // namespace

class TestRecovery : public QObject {
    Q_OBJECT

    PluginLibrary m_plugin;
    QTemporaryDir m_folder{fastFolder()};
    QString m_copies = m_folder.filePath("copies");

    UnsavedStation sample() const
    {
        StationDocument document(m_plugin, emptyStation(m_plugin));
        static_cast<void>(document.edits().add(13650, {3, 3}));
        return document.unsaved();
    }

private slots:
    void initTestCase()
    {
        QCOMPARE(m_plugin.load(SIMPLEEXTEND_LIBRARY_PATH).reason(), QString());
        QVERIFY(QDir::setCurrent(m_folder.path()));
    }

    void killedProgramsLoseAtMostTwoSeconds()
    {
        struct Program {
            QString path; // empty: the program never saves
            QProcess process;
            qint64 death = 0;
        };
        std::array<Program, 6> programs;
        const int count = int(programs.size());
        QRandomGenerator random(6);
        QMap<int, Program *> plan; // by the moment of their deaths
        for (int i = 0; i < count; ++i) {
            Program &program = programs.at(std::size_t(i));
            program.path = i == 0 ? QString() : m_folder.filePath(QString("%1.station").arg(i));
            program.process.start(QCoreApplication::applicationFilePath(),
                                  {"--edit", m_copies, program.path, QString::number(i)});
            plan[1000 + 600 * (count - 1 - i) + random.bounded(600)] = &program;
        }
        QElapsedTimer elapsed;
        elapsed.start();
        for (auto next = plan.begin(); next != plan.end(); ++next) {
            QTest::qWait(std::max<int>(0, next.key() - static_cast<int>(elapsed.elapsed())));
            next.value()->death = QDateTime::currentMSecsSinceEpoch();
            next.value()->process.kill();
            next.value()->process.waitForFinished();
        }
        QMap<QString, QString> recovered; // checksums by file name
        for (const auto &copy : RecoveryCopy::abandoned(m_copies)) {
            const Result<UnsavedStation> station = copy->read();
            QVERIFY(station && !recovered.contains(station->fileName));
            recovered[station->fileName] = projectChecksum(station->project);
        }
        QVERIFY(recovered.contains(QString())); // of the first program
        QCOMPARE(recovered.size(), filesIn(m_copies).size());
        for (Program &program : programs) {
            const QStringList log = QString::fromLatin1(program.process.readAllStandardOutput()).split('\n');
            QVERIFY(log.size() > 20);
            const Result<Project> saved = program.path.isEmpty() ? Failure() : ProjectFile(program.path).read();
            const QStringList candidates{saved ? projectChecksum(*saved) : "none",
                                         recovered.value(program.path, "none")};
            const auto timeOf = [](const QString &line) { return line.section(' ', 0, 0).toLongLong(); };
            const bool isRecent =
                program.death - timeOf(log.first()) < longestLoss || // nothing had to be copied
                std::any_of(log.begin(), log.end(), [&](const QString &line) {
                    return candidates.contains(line.section(' ', 1)) && timeOf(line) >= program.death - longestLoss;
                });
            QVERIFY2(isRecent, qPrintable(log.value(log.size() - 2) + " at " + QString::number(program.death)));
        }
    }

    void offersOnlyCopiesOfDeadPrograms()
    {
        const QString folder = m_folder.filePath("offers");
        RecoveryCopy own(folder);
        QVERIFY(RecoveryCopy::abandoned(folder).empty());
        QVERIFY(own.write(sample()));
        QVERIFY(RecoveryCopy::abandoned(folder).empty()); // its owner runs
        {
            RecoveryCopy ended(folder);
            QVERIFY(ended.write(sample()));
        }
        {
            const auto offered = RecoveryCopy::abandoned(folder);
            QCOMPARE(offered.size(), std::size_t{1});
            QVERIFY(RecoveryCopy::abandoned(folder).empty()); // another program asks for it now
            QCOMPARE(textsOf(offered[0]->read()->project), textsOf(sample().project));
            offered[0]->drop();
        }
        QVERIFY(RecoveryCopy::abandoned(folder).empty());
        own.drop();
        QCOMPARE(filesIn(folder).size(), 1); // the lock of the running program
    }

    void damagedCopiesAreRemoved()
    {
        const QString folder = m_folder.filePath("damaged");
        QVERIFY(RecoveryCopy(folder).write(sample()));
        const QString file = QDir(folder).filePath(filesIn(folder).first() + "/station");
        const QByteArray bytes = contentOf(file);
        QVERIFY(bytes.size() > 100);
        for (int size = 0; size < bytes.size(); size += 7) {
            QVERIFY(QDir().mkpath(QFileInfo(file).path()) && writeFile(file, bytes.left(size)));
            QVERIFY(RecoveryCopy::abandoned(folder).empty());
            QCOMPARE(filesIn(folder), QStringList());
        }
    }

    void reportsAFolderThatCannotBeWritten()
    {
        QVERIFY(writeFile(m_folder.filePath("file"), "x"));
        StationDocument document(m_plugin, emptyStation(m_plugin));
        AutoRecovery recovery(document, m_folder.filePath("file/copies"));
        QSignalSpy spy(&recovery, &AutoRecovery::problemChanged);
        QVERIFY(!recovery.write() && !recovery.write());
        QCOMPARE(spy.count(), 1);
        QVERIFY(spy.at(0).at(0).toString().contains("cannot be written"));
    }

    /// The document and its copy, after each step.
    void isModifiedExactlyWithUnsavedChanges()
    {
        const QString folder = m_folder.filePath("steps");
        StationDocument document(m_plugin, emptyStation(m_plugin));
        auto recovery = std::make_unique<AutoRecovery>(document, folder);
        bool shownMark = false; // as a window shows it
        const auto show = [&] { shownMark = document.isModified(); };
        connect(&document, &StationDocument::fileNameChanged, this, show);
        connect(&document.undoStack(), &QUndoStack::cleanChanged, this, show);
        const auto hasCopy = [&] { return filesIn(folder).size() == 2; };
        const auto step = [&](bool isDone, bool isModified) {
            const bool isRight = isDone && document.isModified() == isModified && shownMark == isModified;
            if (isModified) {
                static_cast<void>(recovery->write());
            }
            return isRight && hasCopy() == isModified;
        };
        const auto add = [&] { return bool(document.edits().add(13650, *document.station().freePlace({}))); };
        QVERIFY(step(add(), true));
        QVERIFY(step(*document.save("steps.station") == ProjectFile::Written::Yes, false));
        QVERIFY(step(add(), true));
        QVERIFY(step((document.undoStack().undo(), true), false));
        QVERIFY(step((document.undoStack().redo(), true), true));
        QVERIFY(step(bool(document.open("steps.station")), false));
        QVERIFY(writeFile("steps.blk", *document.station().compiled()));
        QVERIFY(step(bool(document.readBlocks("steps.blk")), true));
        QVERIFY(step(bool(document.open("steps.station")), false));
        QVERIFY(step(bool(document.readBlocks("steps.blk")), true));
        QVERIFY(step((document.create(), true), false));
        QVERIFY(step(bool(document.recover("steps.station")), true));
        QVERIFY(document.fileName().isEmpty());
        QVERIFY(step(bool(document.restore(sample())), true));
        recovery.reset(); // the program ends, and the user discards the changes
        QCOMPARE(filesIn(folder), QStringList());
    }

    void asksBeforeAnotherProgramsChangesAreLost()
    {
        StationDocument first(m_plugin, emptyStation(m_plugin));
        QVERIFY(first.edits().add(13650, {0, 0}) && first.save("shared.station"));
        StationDocument second(m_plugin, std::make_unique<Station>(m_plugin, "second"));
        QVERIFY(second.open("shared.station") && second.edits().add(13651, {0, 1}));
        const UnsavedStation unsaved = second.unsaved();
        QVERIFY(first.edits().add(13652, {0, 2}));
        QVERIFY(*first.save("shared.station") == ProjectFile::Written::Yes);
        QVERIFY(*second.save("shared.station") == ProjectFile::Written::ChangedOnDisk);
        QVERIFY(second.isModified());
        QVERIFY(second.restore(unsaved)); // a recovery copy contains what the program last read
        QVERIFY(*second.save("../" + QFileInfo(m_folder.path()).fileName() + "/shared.station") ==
                ProjectFile::Written::ChangedOnDisk);
        QVERIFY(*second.save("shared.station", StationDocument::Overwrite::Always) == ProjectFile::Written::Yes);
        QVERIFY(*second.save("shared.station") == ProjectFile::Written::Yes);
        QCOMPARE(textsOf(ProjectFile("shared.station.bak").read()), textsOf(first.station().project()));
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--edit") {
        return edit(arguments.value(2), arguments.value(3), arguments.value(4).toUInt());
    }
    TestRecovery test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_recovery.moc"
