#include "autorecovery.h"

#include "stationdocument.h"

AutoRecovery::AutoRecovery(StationDocument &document, const QString &folder) : m_document(document), m_copy(folder)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    connect(&m_timer, &QTimer::timeout, this, &AutoRecovery::write);
    connect(&document, &StationDocument::stationReplaced, this, &AutoRecovery::update);
    connect(&document.undoStack(), &QUndoStack::indexChanged, this, &AutoRecovery::update);
    connect(&document.undoStack(), &QUndoStack::cleanChanged, this, &AutoRecovery::update);
}

AutoRecovery::~AutoRecovery()
{
    m_document.disconnect(this);
    m_document.undoStack().disconnect(this);
    m_copy.drop();
}

/// Later changes do not postpone the copy, because continuous edits would then never be in it.
void AutoRecovery::update()
{
    if (!m_document.isModified()) {
        m_timer.stop();
        m_copy.drop();
    } else if (!m_timer.isActive()) {
        m_timer.start();
    }
}

bool AutoRecovery::write()
{
    m_timer.stop();
    const QString problem = m_copy.write(m_document.unsaved()).reason();
    if (problem != m_problem) {
        m_problem = problem;
        emit problemChanged(problem);
    }
    return problem.isEmpty();
}
