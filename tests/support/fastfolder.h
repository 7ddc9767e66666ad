// Temporary folders without waiting for a disk, and the contents of their files.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// Returns the template of a QTemporaryDir, in memory if possible. The files of a killed program are the same there as
/// on a disk.
inline QString fastFolder()
{
    return (QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : QDir::tempPath()) + "/XXXXXX";
}

/// Returns the bytes of the file, or a null array if it cannot be read.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
