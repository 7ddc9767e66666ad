// Keeps a recovery copy of a document while it has unsaved changes.
#pragma once

#include "recoverycopy.h"

#include <QObject>
#include <QTimer>

class StationDocument;

class AutoRecovery : public QObject {
    Q_OBJECT
public:
    /// A change is in the copy after this time plus the time to write it, within 2 s altogether.
    static constexpr int delay = 1500; // ms

    /// @p document must outlive this object.
    explicit AutoRecovery(StationDocument &document, const QString &folder = RecoveryCopy::defaultFolder());
    /// Drops the copy, because the program ends as intended.
    ~AutoRecovery() override;

    /// Writes the copy now. Returns false when it cannot be written.
    bool write();

signals:
    /// The copy cannot be written. Empty when it can again.
    void problemChanged(const QString &reason);

private:
    void update();

    StationDocument &m_document;
    RecoveryCopy m_copy;
    QTimer m_timer;
    QString m_problem;
};
