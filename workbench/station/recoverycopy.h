// Copies of stations with unsaved changes, for the case that the program or the machine fails.
#pragma once

#include "project.h"
#include "result.h"

#include <QDateTime>

#include <memory>
#include <optional>
#include <vector>

class QLockFile;

/// A station whose changes are not in a project file.
struct UnsavedStation {
    Project project;
    QString fileName;      ///< its project file; empty if it was never saved
    QString savedChecksum; ///< projectChecksum() of what the program read from or wrote to that file
    QDateTime time;        ///< of the copy
};

/// The copy of one running program. A lock shows other programs that its owner still runs; the lock of a program that
/// was killed does not count.
class RecoveryCopy {
public:
    /// The user's folder for copies, outside all projects.
    static QString defaultFolder();
    /// The copies whose owners do not run any more, the latest first. They are locked until they are destroyed. Removes
    /// what such owners left without a readable copy.
    static std::vector<std::unique_ptr<RecoveryCopy>> abandoned(const QString &folder);

    /// A new copy in @p folder. Creates no file before write().
    explicit RecoveryCopy(const QString &folder);
    /// Releases the lock. The file stays unless it was dropped.
    ~RecoveryCopy();
    Q_DISABLE_COPY_MOVE(RecoveryCopy)

    /// Replaces the copy as a whole.
    Result<> write(const UnsavedStation &station);
    Result<UnsavedStation> read() const;
    /// Removes the copy. Does nothing without one.
    void drop() const;

private:
    RecoveryCopy(const QString &folder, const QString &name);
    QString file() const;
    std::optional<QByteArray> content() const;

    QString m_folder; // of this copy only, because a killed writer leaves temporary files
    std::unique_ptr<QLockFile> m_lock;
};
