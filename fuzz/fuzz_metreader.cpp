// Reads any bytes as a description file.
#include "metentries.h"
#include "target.h"

#include <QTextStream>

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::prepare();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content = fuzz::bytesOf(data, size);
    QTextStream stream(content); // the reader must find the same lines
    QString expected;
    fuzz::visitMetFile(content, [&](QStringView line, const ModuleMetInfo *entry) {
        fuzz::require(stream.readLineInto(&expected) && line == expected, "a text stream reads another line");
        fuzz::require(entry == nullptr || line.startsWith(QLatin1String("[end]"), Qt::CaseInsensitive),
                      "an entry does not end in an [END] line");
    });
    fuzz::require(!stream.readLineInto(&expected), "a text stream reads more lines");
    return 0;
}
