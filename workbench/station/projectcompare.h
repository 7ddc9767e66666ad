// The differences between two projects, read from their saved states. Needs neither the plug-in nor the catalog.
#pragma once

#include "blockdecoder.h"
#include "project.h"

#include <QVector>

#include <optional>

struct ProjectDifference {
    enum Kind {
        Field,     ///< a field of a module that both projects have
        OnlyLeft,  ///< a module that only the left project has
        OnlyRight, ///< a module that only the right project has
        Property   ///< of the project itself: controller, title, author, revision, notes
    };

    Kind kind = Field;
    Place place;    ///< of the module, in the left project if that has it
    QString module; ///< its name there
    quint32 typeCode = 0;
    QString field; ///< name of the field as the decoder gives it, or of the property
    /// The field on each side; empty if that side lacks it. Properties have only a name and a value.
    QVector<blockdecoder::Field> left;
    QVector<blockdecoder::Field> right;
};

/// Compares modules of the same rack, slot and type, then the others of the same type, as moved ones. Compares values
/// that reach the module, not the framing of the states.
QVector<ProjectDifference> compareProjects(const Project &left, const Project &right);

/// One line in English, with both values. Line breaks in texts are escaped. @p leftName and @p rightName name the
/// projects of modules that only one of them has.
QString differenceLine(const ProjectDifference &difference, const QString &leftName, const QString &rightName);
