// A table of test data, row by row.
#pragma once

#include <QtTest>

/// Declares the columns, whose names come in the order of their types; each call then adds a row.
template <class... Columns>
class Rows {
public:
    template <class... Names>
    explicit Rows(Names... names)
    {
        (QTest::addColumn<Columns>(names), ...);
    }
    void operator()(const QByteArray &name, const Columns &...values) const
    {
        (QTest::newRow(name.constData()) << ... << values);
    }
};
