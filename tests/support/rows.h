// Tables of test data.
#pragma once

#include <QtTest>

/// Declares the columns with their names in the order of their types. Each call adds a row.
template <typename... Columns>
class Rows {
public:
    template <typename... Names>
    explicit Rows(Names... names)
    {
        (QTest::addColumn<Columns>(names), ...);
    }
    void operator()(const QByteArray &name, const Columns &...values) const
    {
        (QTest::newRow(name.constData()) << ... << values);
    }
};

/// The value of a column in the current row, for a value that is used once. QFETCH declares a variable.
template <typename Type>
Type fetched(const char *column)
{
    return *static_cast<Type *>(QTest::qData(column, qMetaTypeId<Type>()));
}
