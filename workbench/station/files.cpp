#include "files.h"

#include "blockdecoder.h"
#include "projectfile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Files)
};

/// On a nearly full disk the first write may be partial; the next write reports the error.
bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0) {
            return false;
        }
        done += written;
    }
    return file.flush();
}

} // namespace

Result<QByteArray> readBlockFile(const QString &path)
{
    constexpr qint64 limit = blockdecoder::maximumFileSize;
    QFile file(path);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly)) {
        QByteArray part;
        do { // a pipe yields its content in parts
            part = file.read(limit + 1 - bytes.size());
            bytes += part;
        } while (!part.isEmpty());
    }
    if (file.error() != QFileDevice::NoError) {
        return Failure{file.errorString()};
    }
    if (bytes.size() > limit) {
        return Failure{Texts::tr("The file is larger than %1 bytes, the limit for configuration blocks.").arg(limit)};
    }
    return bytes;
}

Result<> writeFile(const QString &path, const QByteArray &bytes)
{
    if (ProjectFile(path).isProject()) {
        return Failure{Texts::tr("The file is a project, and only a project can replace it. Choose another name.")};
    }
    const QFileInfo target(path);
    QFile device(path);
    QSaveFile file(path);
    // A device or a pipe must not be replaced by a file.
    const bool isDevice = target.exists() && !target.isFile() && !target.isDir();
    QFileDevice &out = isDevice ? static_cast<QFileDevice &>(device) : file;
    if (out.open(QIODevice::WriteOnly) && writeAll(out, bytes) && (isDevice || file.commit())) {
        return {};
    }
    return Failure{out.errorString()};
}
