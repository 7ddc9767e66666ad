// Checks any bytes with the description linter.
#include "linter.h"
#include "metentries.h"
#include "target.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr quint32 typeCode = 13395;

const LintContext &context()
{
    // No component folder, because a disk access for each entry would take most of the time.
    static const LintContext theContext{metFileName(typeCode), 2300, QString(), QTextCodec::codecForLocale()};
    return theContext;
}

bool isBefore(const Diagnostic &left, const Diagnostic &right)
{
    return std::tie(left.place.line, left.place.column) < std::tie(right.place.line, right.place.column);
}

bool isPrintableLine(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.isPrint() || character.isSurrogate();
    });
}

/// Returns true if a host can create a module from the file.
bool isUsable(const QByteArray &content)
{
    bool found = false;
    fuzz::visitMetFile(content, [&found](QStringView /*line*/, const ModuleMetInfo *entry) {
        found = found || (entry != nullptr && entry->objId == typeCode && entry->moduleInfo != 0 &&
                          !entry->serverFile.isEmpty());
    });
    return found;
}

} // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::prepare();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content = fuzz::bytesOf(data, size);
    const QVector<Diagnostic> diagnostics = lint(content, context());
    const int lines = content.count('\n') + 1;
    for (const Diagnostic &diagnostic : diagnostics) {
        fuzz::require(diagnostic.place.line >= 1 && diagnostic.place.line <= lines && diagnostic.place.column >= 1,
                      "a diagnostic has no place");
        fuzz::require(isPrintableLine(formatDiagnostic(context().fileName, diagnostic)),
                      "a diagnostic is not a printable line");
    }
    fuzz::require(std::is_sorted(diagnostics.begin(), diagnostics.end(), isBefore), "the diagnostics are not in order");
    fuzz::require(!diagnostics.isEmpty() || isUsable(content), "a file without diagnostics has no entry for the host");
    return 0;
}
