// What every fuzz target begins with and ends in. A target is one LLVMFuzzerTestOneInput and this header.
#pragma once

#include <QLoggingCategory>
#include <QString>
#include <QTextCodec>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" {
int LLVMFuzzerInitialize(int *argc, char ***argv);
/// Takes any bytes; does not return when they reveal a fault. Always 0.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
}

namespace fuzz {

/// The costly checks see one input in FUZZ_COSTLY_SHARE (an environment variable), chosen by content; each without it.
inline bool isForCostlyChecks(const QByteArray &bytes)
{
    static const int share = qMax(1, qEnvironmentVariableIntValue("FUZZ_COSTLY_SHARE"));
    return qChecksum(bytes.constData(), static_cast<uint>(bytes.size()), Qt::ChecksumIso3309) % share == 0;
}

/// Ends the program with a finding unless @p fault is empty.
inline void require(const QString &fault)
{
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "%s\n", fault.toUtf8().constData());
        std::abort();
    }
}

inline void require(bool holds, const char *fault)
{
    if (!holds) {
        require(QString::fromLatin1(fault));
    }
}

/// The bytes as they are, so that a read past their end is one past the end of an allocation.
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

/// The same encoding and the same silence wherever the target runs.
inline void prepare()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
}

} // namespace fuzz
