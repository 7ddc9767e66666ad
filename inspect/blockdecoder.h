// Decodes blocks into named fields: offset, bytes, value and meaning of each, and where a block is malformed.
//
// The decoder is independent of the plug-in's reader on purpose, because tests and fuzz targets check one against the
// other. Both share the order of the fields (persist/blocklayout.h) and the tables of core/, but no code that reads a
// byte. The values are the reader's, with two exceptions that depend on the catalog: the decoder accepts every type
// code, and it leaves out the fields that a truncated header lacks.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>

namespace blockdecoder {

/// Maximum size in bytes of a file of blocks that programs read: 16 times what a full station of 4,096 modules compiles
/// to.
constexpr qint64 maximumFileSize = Q_INT64_C(8) * 1024 * 1024;

/// One field, in the order of the block.
struct Field {
    int offset = 0;      ///< of its first byte in the decoded data
    QByteArray raw;      ///< empty for a value that the block implies
    QString name;        ///< stable, such as "header.rackId" or "analogInput[3].deadband" for channel 3
    QVariant value;      ///< as read: qlonglong, double, QString, or QByteArray for bytes without further structure
    QString meaning;     ///< English; empty if the value needs no explanation
    bool stored = false; ///< the rebuilt module holds this value; at most one field of a name is stored
};

struct Part {
    QString title;
    QVector<Field> fields;
};

/// The first invalid place of a header or a section, and its effect on the rebuilt module.
struct Damage {
    int offset = 0;
    QString name; ///< of the expected field
    QString expected;
    QString found;
    QString effect;
};

struct DecodedBlock {
    int offset = 0;
    int size = 0;          ///< in bytes, up to where decoding ends; without the bytes after a saved state
    bool refused = false;  ///< no module is rebuilt from the block
    bool complete = false; ///< all counted sections were decoded, so the end of the block is known
    QString kind;          ///< of the module; empty if the header ends before the type code
    QVector<Part> parts;
    QVector<Damage> damages;

    /// Returns the stored field of that name, or null. The block owns the field.
    const Field *find(const QString &name) const;
};

/// Decodes a saved state. Bytes after it are its last part. Accepts any bytes, also none; takes linear time.
DecodedBlock decodeSavedState(const QByteArray &bytes);

/// Decodes configuration blocks, one after the other, until the data ends or a block has no known end. Returns at least
/// one block. Accepts any bytes, also none; takes linear time.
QVector<DecodedBlock> decodeConfiguration(const QByteArray &bytes);

} // namespace blockdecoder
