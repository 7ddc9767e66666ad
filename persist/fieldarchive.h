// Joins the walks of blocklayout.h, which name each field, and the cursors, which have no names.
#pragma once

#include "bytereader.h"

#include <type_traits>

/// Passes the fields of a walk to a ByteReader or a BlockWriter, which must outlive the archive.
template <typename Cursor>
class FieldArchive {
    template <typename Value>
    using Field = std::conditional_t<std::is_same_v<Cursor, ByteReader>, Value &, const Value &>;

public:
    explicit FieldArchive(Cursor &cursor) : m_cursor(cursor) {}

    void u8(const char * /*name*/, Field<quint8> value) { m_cursor.u8(value); }
    void u16(const char * /*name*/, Field<quint16> value) { m_cursor.u16(value); }
    void i16(const char * /*name*/, Field<qint16> value) { m_cursor.i16(value); }
    void u32(const char * /*name*/, Field<quint32> value) { m_cursor.u32(value); }
    void u32FromSignedBytes(const char * /*name*/, Field<quint32> value) { m_cursor.u32FromSignedBytes(value); }
    void f32(const char * /*name*/, Field<float> value) { m_cursor.f32(value); }
    void text(const char * /*name*/, Field<QString> value) { m_cursor.text(value); }
    void textSigned(const char * /*name*/, Field<QString> value) { m_cursor.textSigned(value); }
    template <typename Value>
    void lowByte(const char * /*name*/, Value &value)
    {
        m_cursor.lowByte(value);
    }
    template <typename Value>
    void lowByteSigned(const char * /*name*/, Value &value)
    {
        m_cursor.lowByteSigned(value);
    }
    template <typename Value>
    void raw(const char * /*name*/, Value &value)
    {
        m_cursor.raw(value);
    }

private:
    Cursor &m_cursor;
};
