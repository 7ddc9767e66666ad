// Reads project files, recovers them, writes them and reads them again.
//
// An input that begins as a SQLite database is a file. Changes of its bytes reach the checks of the header, the tables
// and the pages, but hardly anything after the checksum. Any other input describes a file, which then has a checksum.
#include "describedproject.h"
#include "projectrecovery.h"
#include "projecttexts.h"
#include "target.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace fuzz;

namespace {

void checkProject(const Project &project)
{
    const auto &modules = project.modules;
    require(hasValidPlaces(project), "a place is invalid");
    require(std::all_of(modules.begin(), modules.end(),
                        [](const StoredModule &module) {
                            return !module.state.isEmpty() && module.state.size() <= StoredModule::maximumStateSize;
                        }),
            "a state is invalid");
    require(std::adjacent_find(modules.begin(), modules.end(),
                               [](const StoredModule &left, const StoredModule &right) {
                                   return !(left.place < right.place);
                               }) == modules.end(),
            "the modules are not in the order of their places");
}

/// Requires that the file @p name contains @p project after it is written there.
void checkWritten(Project project, const char *name)
{
    const ProjectFile file(pathOf(name));
    require(file.write(project).reason());
    for (StoredModule &module : project.modules) {
        module.name = storedText(module.name);
    }
    ProjectProperties &properties = project.properties;
    for (QString *text : {&properties.title, &properties.author, &properties.revision, &properties.notes}) {
        *text = storedText(*text);
    }
    require(textsOf(file.read()) == textsOf(project), "another project is read than was written");
}

/// Writes a new file and replaces the present one, or tries to replace a file that is not a project.
void checkWriting(const QString &path, const Result<Project> &read)
{
    if (read) {
        QFile::remove(pathOf("new"));
        checkWritten(*read, "new");
        checkWritten(*read, "present");
        return;
    }
    const QByteArray before = contentOf(path);
    require(ProjectFile(path).write(Project()).reason() == read.reason() && contentOf(path) == before,
            "a rejected file is written");
}

/// Selects one input in eight, also in a replay, because a recovery takes as long as a hundred reads.
bool isForRecovery(const QByteArray &input)
{
    return qChecksum(input.constData(), static_cast<uint>(input.size()), Qt::ChecksumItuV41) % 8 == 0;
}

void checkRecovery(const QString &path, const Result<Project> &read)
{
    const Result<RecoveredProject> recovered = recoverProject(path);
    require(recovered || !recovered.reason().isEmpty(), "a failed recovery has no reason");
    if (recovered) {
        checkProject(recovered->project);
        QFile::remove(pathOf("new"));
        checkWritten(recovered->project, "new");
    }
    require(!read || read->modules.empty() || (recovered && textsOf(recovered->project) == textsOf(*read)),
            "the recovery of a sound file loses data");
}

} // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    prepare();
    static int argc = 1;
    static std::array<char *, 2> argv = {const_cast<char *>("fuzz"), nullptr};
    static const QCoreApplication application(argc, argv.data());       // Qt's database drivers need it
    qputenv("TMPDIR", QFile::encodeName(QFileInfo(pathOf("")).path())); // for recoverProject()
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = bytesOf(data, size);
    const QString path = pathOf("present");
    std::optional<Project> described;
    if (input.startsWith("SQLite format 3")) {
        writeContent(path, input);
    } else {
        described = writeDescribed(path, InputCursor(input));
    }
    const Result<Project> read = ProjectFile(path).read();
    require(read || !read.reason().isEmpty(), "a file is rejected without a reason");
    require(!described || textsOf(read) == textsOf(*described), "a valid file is read as another project");
    if (read) {
        checkProject(*read);
    }
    if (isForCostlyChecks(input, 4) && isForRecovery(input)) {
        checkRecovery(path, read);
    }
    if (isForCostlyChecks(input)) { // writing a file takes longer than reading it
        checkWriting(path, read);
    }
    return 0;
}
