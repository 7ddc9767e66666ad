// Takes blocks apart into named fields: what stands where, what it means, and where a block stops making sense.
//
// Reads exactly what the plug-in reads from the same bytes, but for what only the catalog knows: whether it has the
// type code, and the values of the fields that a header which ends early leaves out.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>

namespace blockdecoder {

enum class Format { SavedState, Configuration };

/// Largest file of blocks that programs read, in bytes: 16 times what a full station of 4,096 modules compiles to.
constexpr qint64 maximumFileSize = 8 * 1024 * Q_INT64_C(1024);

/// One field, in the order of the block.
struct Field {
    int offset = 0;  ///< of its first byte in the data given to decode()
    QByteArray raw;  ///< empty for a value that the block implies without spelling it
    QString name;    ///< stable, such as "header.rackId" or "analogInput[3].deadband", the number being the channel's
    QVariant value;  ///< as read: qlonglong, double, QString, or QByteArray for bytes without further structure
    QString meaning; ///< English; empty where the value says it all
    bool stored = false; ///< the module that is rebuilt holds this value; at most one field of a name does
};

struct Part {
    QString title;
    QVector<Field> fields;
};

/// The first place of a header or section that makes no sense, and what that does to the module that is rebuilt.
struct Damage {
    int offset = 0;
    QString name; ///< of the field that was due
    QString expected;
    QString found;
    QString effect;
};

struct DecodedBlock {
    int offset = 0;
    int size = 0;          ///< bytes up to where the reading ends, what lies behind a saved state not counted
    bool refused = false;  ///< no module is rebuilt from it
    bool complete = false; ///< every counted section was walked, so that the end of the block is known
    QString kind;          ///< of the module; empty when the header does not tell
    QVector<Part> parts;
    QVector<Damage> damages;

    /// The stored field of that name, or null; valid as long as the block is unchanged.
    const Field *find(const QString &name) const;
};

/// A saved state is one block, and all that lies behind it is trailing; configuration blocks stand one behind the
/// other up to the end. At least one block, also from no bytes at all. Takes linear time and reads nothing else.
QVector<DecodedBlock> decode(const QByteArray &bytes, Format format);

} // namespace blockdecoder
