// Shared by all fuzz targets. A target is this header and one function LLVMFuzzerTestOneInput.
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
/// Accepts any bytes. Returns 0, or aborts the program if a check fails.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
}

namespace fuzz {

/// Returns true for one input of FUZZ_COSTLY_SHARE (an environment variable, by default 1), chosen by its content.
/// Checks that are more costly than usual are for one of @p rarity such inputs; for every input if the share is 1.
inline bool isForCostlyChecks(const QByteArray &bytes, int rarity = 1)
{
    static const int share = qMax(1, qEnvironmentVariableIntValue("FUZZ_COSTLY_SHARE"));
    return qChecksum(bytes.constData(), static_cast<uint>(bytes.size()), Qt::ChecksumIso3309) %
               (share == 1 ? 1 : share * rarity) ==
           0;
}

/// Aborts the program with the message @p fault unless that is empty.
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

/// Returns the bytes without a copy, so a read beyond their end is a read beyond the allocation.
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

/// Sets the same encoding on all machines and switches debug output off.
inline void prepare()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
}

} // namespace fuzz
