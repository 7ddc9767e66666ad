// Explains what the reader does with a description file where that differs from what the file seems to say.
#pragma once

#include "lintrules.h"

#include <QByteArray>
#include <QTextCodec>
#include <QVector>

#include <optional>

/// What the linter has to know about the file's surroundings.
struct LintContext {
    QString fileName;        ///< without folder; decides the type code that the host looks up in the file
    quint32 hostVersion = 0; ///< as getAppVerNum() gives it
    QString componentFolder; ///< folder of the component files; empty = whether they exist is not checked
    QTextCodec *encoding = QTextCodec::codecForLocale(); ///< of files without a byte-order mark
};

struct Finding {
    int line = 1;   ///< from 1, as the reader counts lines
    int column = 1; ///< from 1, in UTF-16 units
    Rule rule = Rule::NoEntry;
    QString text; ///< one printable line
};

/// The type code whose look-up the file's name suggests, in whatever case it is written; nothing for other names.
std::optional<quint32> typeCodeOfFileName(const QString &fileName);

/// All findings in the order of their places. Takes any bytes; time and result grow with the content's length.
QVector<Finding> lint(const QByteArray &content, const LintContext &context);

/// "file:line:column: severity: text [rule]"
QString formatFinding(const QString &file, const Finding &finding);
