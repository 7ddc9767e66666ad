#include "statepatch.h"

#include "baseservices.h"
#include "blockdecoder.h"
#include "imagerangetext.h"

#include <QtEndian>

namespace {

constexpr int rangeFieldsSize = 4;

QByteArray byte(int value)
{
    return {1, static_cast<char>(value)};
}

/// The three fields of a range, which are adjacent in the header.
QByteArray rangeFields(const IoMap &range)
{
    return byte(range.area) + ushortToByteArray(range.start) + byte(rangeBytes(range));
}

/// The inverse of rangeFields(), as a range of bytes. The length is not a field of the rebuilt module.
IoMap rangeOf(const QByteArray &state, const blockdecoder::Field *area)
{
    IoMap range{};
    if (area != nullptr && state.size() >= area->offset + rangeFieldsSize) {
        range.area = static_cast<quint8>(state.at(area->offset));
        range.start = qFromBigEndian<quint16>(state.constData() + area->offset + 1);
        range.count = static_cast<quint8>(state.at(area->offset + 3));
        range.unit = 1;
    }
    return range;
}

/// Offset of the first section: a count of sections is before the header, which begins with its length. -1 if the state
/// ends before it.
int sectionsOffset(const QByteArray &state)
{
    constexpr int countSize = 1;
    if (state.size() < countSize + static_cast<int>(sizeof(quint32))) {
        return -1;
    }
    const auto length = qFromBigEndian<quint32>(state.constData() + countSize);
    return length > static_cast<quint32>(state.size() - countSize) ? -1 : countSize + static_cast<int>(length);
}

std::optional<quint32> typeCodeOf(const blockdecoder::DecodedBlock &decoded)
{
    const blockdecoder::Field *type = decoded.find(QStringLiteral("header.objId"));
    return type == nullptr ? std::nullopt : std::optional<quint32>(type->value.toUInt());
}

} // namespace

std::optional<quint32> typeCodeOfState(const QByteArray &state)
{
    return typeCodeOf(blockdecoder::decodeSavedState(state));
}

std::optional<quint32> typeCodeOfBlock(const QByteArray &blocks)
{
    return typeCodeOf(blockdecoder::decodeConfiguration(blocks).constFirst());
}

std::pair<IoMap, IoMap> rangesOfState(const QByteArray &state)
{
    const auto decoded = blockdecoder::decodeSavedState(state);
    return {rangeOf(state, decoded.find(QStringLiteral("header.inMap.area"))),
            rangeOf(state, decoded.find(QStringLiteral("header.outMap.area")))};
}

QByteArray withFields(QByteArray state, std::initializer_list<std::pair<const char *, QByteArray>> fields)
{
    const auto decoded = blockdecoder::decodeSavedState(state);
    for (const auto &[name, bytes] : fields) {
        if (const auto *field = decoded.find(QLatin1String("header.") + QLatin1String(name))) {
            state.replace(field->offset, bytes.size(), bytes);
        }
    }
    return state;
}

QByteArray sectionsOf(const QByteArray &state)
{
    const int offset = sectionsOffset(state);
    return offset < 0 ? QByteArray() : state.mid(offset);
}

std::optional<QByteArray> withSectionsOf(const QByteArray &source, const QByteArray &state)
{
    const int from = sectionsOffset(source);
    const int to = sectionsOffset(state);
    if (from < 0 || to < 0) {
        return std::nullopt;
    }
    return source.left(1) + state.mid(1, to - 1) + source.mid(from); // the first byte counts the sections
}

QByteArray withPlace(const QByteArray &state, Place place)
{
    return withFields(state, {{"rackId", byte(place.rack)},
                              {"slotId", byte(place.slot)},
                              {"positionX", intToByteArray(place.slot)},
                              {"positionY", intToByteArray(place.rack)}});
}

QByteArray withRanges(const QByteArray &state, const IoMap &in, const IoMap &out)
{
    return withFields(state, {{"inMap.area", rangeFields(in)}, {"outMap.area", rangeFields(out)}});
}
