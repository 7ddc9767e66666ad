// The SQLite database of a project file: its tables, its connection and its errors.
#pragma once

#include "project.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <QVector>

/// The statements that create the tables of a format version. SQLite stores their text, which identifies a station
/// file.
QStringList projectSchema(int version);

/// The text that a file returns after @p text was written: without byte order marks at its beginning, and with U+FFFD
/// in place of unpaired surrogates, U+FFFE and U+FFFF, as SQLite converts texts. Never null.
QString storedText(const QString &text);

/// The texts of the properties as storedText(), in the order of their columns.
QStringList textsOf(const ProjectProperties &properties);

/// An open database with a separate connection name, which is removed with it. Stores the first error.
class ProjectDatabase {
public:
    explicit ProjectDatabase(const QString &path);
    ~ProjectDatabase();
    Q_DISABLE_COPY_MOVE(ProjectDatabase)

    /// Runs a statement once per row of values. After a failure all later calls fail.
    bool run(const QString &statement, const QVector<QVariantList> &rows = {QVariantList()});
    /// Calls @p take with the query at each row of the result.
    template <typename Take>
    bool select(const QString &statement, Take take, const QVariantList &values = {})
    {
        QSqlQuery query = prepared(statement);
        if (!exec(query, values)) {
            return false;
        }
        while (query.next()) {
            take(query);
        }
        return keep(query.lastError());
    }
    /// Starts to change the project. The change is complete or undone, also when the power fails.
    bool begin();
    /// Creates the tables of an empty file and writes @p project.
    bool create(const Project &project);
    /// Replaces the project, after begin().
    bool replace(const Project &project);

    /// The format version that the file states; 0 after an error.
    int version();
    /// Empty properties if they cannot be read.
    ProjectProperties properties();

    /// A sentence for the user; empty without an error.
    const QString &errorString() const { return m_errorString; }
    /// Lets later calls run again after an error.
    void forgetError() { m_errorString.clear(); }

private:
    QSqlQuery prepared(const QString &statement);
    bool exec(QSqlQuery &query, const QVariantList &row);
    bool keep(const QSqlError &error);
    bool setVersion();
    bool insert(const Project &project);

    QString m_name;
    QSqlDatabase m_database;
    QString m_errorString;
    QString m_statement; ///< of m_query, which a repeated statement uses again
    QSqlQuery m_query;
};
