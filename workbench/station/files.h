// Reads and writes whole files.
#pragma once

#include "result.h"

#include <QByteArray>

/// The content of a file or device of configuration blocks. Fails when it cannot be read or is larger than
/// blockdecoder::maximumFileSize.
Result<QByteArray> readBlockFile(const QString &path);

/// Replaces the file as a whole, or writes to the device of this name. Fails if the file is a project.
/// A failure leaves an existing file unchanged.
Result<> writeFile(const QString &path, const QByteArray &bytes);
