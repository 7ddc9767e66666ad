#include "projectcompare.h"

#include "blockmatch.h"
#include "blockreport.h"

using blockdecoder::Field;

namespace {

QVector<blockdecoder::ModuleKey> keysOf(const Project &project)
{
    QVector<blockdecoder::ModuleKey> keys;
    keys.reserve(static_cast<int>(project.modules.size()));
    for (const StoredModule &module : project.modules) {
        keys += {module.place.rack, module.place.slot, module.typeCode, module.name};
    }
    return keys;
}

ProjectDifference ofModule(ProjectDifference::Kind kind, const StoredModule &module)
{
    ProjectDifference difference;
    difference.kind = kind;
    difference.place = module.place;
    difference.module = module.name;
    difference.typeCode = module.typeCode;
    return difference;
}

/// The position repeats rack and slot.
bool isRelevant(const blockdecoder::Difference &difference)
{
    const auto isStored = [](const QVector<Field> &side) { return !side.isEmpty() && side.first().stored; };
    return (isStored(difference.left) || isStored(difference.right)) &&
           !difference.name.startsWith(QLatin1String("header.position"));
}

void compareStates(const StoredModule &left, const StoredModule &right, QVector<ProjectDifference> &differences)
{
    if (left.state == right.state) {
        return;
    }
    const auto fields = blockdecoder::difference({blockdecoder::decodeSavedState(left.state)},
                                                 {blockdecoder::decodeSavedState(right.state)});
    for (const blockdecoder::Difference &field : fields) {
        if (isRelevant(field)) {
            ProjectDifference difference = ofModule(ProjectDifference::Field, left);
            difference.field = field.name;
            difference.left = field.left;
            difference.right = field.right;
            differences += difference;
        }
    }
}

void compareProperty(const QString &name, const QVariant &left, const QVariant &right,
                     QVector<ProjectDifference> &differences)
{
    if (left == right) {
        return;
    }
    ProjectDifference difference;
    difference.kind = ProjectDifference::Property;
    difference.field = name;
    difference.left = {{0, {}, name, left, {}, true}};
    difference.right = {{0, {}, name, right, {}, true}};
    differences += difference;
}

QString sideText(const QVector<Field> &side)
{
    if (side.isEmpty()) {
        return QStringLiteral("missing");
    }
    const Field &field = side.first();
    const bool isBytes = field.value.type() == QVariant::ByteArray;
    const QString value =
        isBytes ? QString::fromLatin1(field.value.toByteArray().toHex(' ')) : blockdecoder::valueText(field);
    return field.meaning.isEmpty() ? value : QStringLiteral("%1 (%2)").arg(value, field.meaning);
}

} // namespace

QVector<ProjectDifference> compareProjects(const Project &left, const Project &right)
{
    QVector<ProjectDifference> differences;
    compareProperty(QStringLiteral("plcType"), left.plcType, right.plcType, differences);
    compareProperty(QStringLiteral("title"), left.properties.title, right.properties.title, differences);
    compareProperty(QStringLiteral("author"), left.properties.author, right.properties.author, differences);
    compareProperty(QStringLiteral("revision"), left.properties.revision, right.properties.revision, differences);
    compareProperty(QStringLiteral("notes"), left.properties.notes, right.properties.notes, differences);
    const auto at = [](const Project &project, int index) -> const StoredModule & {
        return project.modules[static_cast<std::size_t>(index)];
    };
    for (const blockdecoder::MatchedModules &pair : blockdecoder::matchedModules(keysOf(left), keysOf(right))) {
        if (pair.left && pair.right) {
            compareStates(at(left, *pair.left), at(right, *pair.right), differences);
        } else if (pair.left) {
            differences += ofModule(ProjectDifference::OnlyLeft, at(left, *pair.left));
        } else {
            differences += ofModule(ProjectDifference::OnlyRight, at(right, *pair.right));
        }
    }
    return differences;
}

QString differenceLine(const ProjectDifference &difference, const QString &leftName, const QString &rightName)
{
    const QString values = difference.field + QStringLiteral(": ") + sideText(difference.left) +
                           QStringLiteral(" -> ") + sideText(difference.right);
    if (difference.kind == ProjectDifference::Property) {
        return QStringLiteral("project: ") + values;
    }
    const Field name{0, {}, {}, difference.module, {}, true};
    const QString module = QStringLiteral("rack %1, slot %2: ").arg(difference.place.rack).arg(difference.place.slot) +
                           blockdecoder::valueText(name);
    if (difference.kind == ProjectDifference::Field) {
        return module + QLatin1Char(' ') + values;
    }
    return module + QStringLiteral(" (type %1) is only in ").arg(difference.typeCode) +
           (difference.kind == ProjectDifference::OnlyLeft ? leftName : rightName);
}
