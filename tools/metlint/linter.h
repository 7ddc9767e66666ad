// Reports where the reader's result differs from what a description file appears to say.
#pragma once

#include "lintrules.h"

#include <QByteArray>
#include <QTextCodec>
#include <QVector>

#include <optional>

/// The surroundings of a file.
struct LintContext {
    QString fileName;        ///< without folder; the host looks up the type code that it contains
    quint32 hostVersion = 0; ///< as getAppVerNum() returns it
    QString componentFolder; ///< folder of the component files; empty = their existence is not checked
    QTextCodec *encoding = QTextCodec::codecForLocale(); ///< of files without a byte-order mark; not owned
};

/// A place in a description file.
struct TextPlace {
    int line = 0;   ///< from 1, as the reader counts lines; 0 = no place
    int column = 1; ///< from 1, in UTF-16 units

    bool exists() const { return line > 0; }
    TextPlace moved(int columns) const { return {line, column + columns}; }
};

struct Diagnostic {
    TextPlace place;
    Rule rule;
    QString text; ///< one printable line
};

/// Returns the type code that the name suggests, in any case; std::nullopt for names of another form.
std::optional<quint32> typeCodeOfFileName(const QString &fileName);

/// Returns all diagnostics, sorted by their places. Accepts any bytes; time and memory grow with their number.
QVector<Diagnostic> lint(const QByteArray &content, const LintContext &context);

/// Returns "file:line:column: severity: text [rule]".
QString formatDiagnostic(const QString &file, const Diagnostic &diagnostic);
