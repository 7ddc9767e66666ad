// Runs a target on files, for builds without a fuzzing engine: replay FOLDER... A missing folder counts as empty. It is
// an error if all folders are empty.
#include "target.h"

#include <QDirIterator>
#include <QFile>

namespace {

bool replayFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path)); // after a crash the last line names the file
    std::fflush(stdout);
    const QByteArray content = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(content.constData()),
                           static_cast<std::size_t>(content.size()));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (QDirIterator files(QFile::decodeName(argv[i]), QDir::Files); files.hasNext(); ++replayed) {
            if (!replayFile(files.next())) {
                return EXIT_FAILURE;
            }
        }
    }
    return replayed == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
