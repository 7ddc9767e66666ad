// Description files from memory, read as the reader reads them from disk.
#pragma once

#include "metreader.h"

namespace fuzz {

/// Calls @p visit with each line of a file's text and with the entry that ends there, or null.
template <class Visitor>
void visitMetFile(const QByteArray &content, Visitor &&visit)
{
    QTextCodec::ConverterState state;
    const QString text = decodeMetFile(content, QTextCodec::codecForLocale(), state);
    MetParser parser;
    visitMetLines(text, [&](QStringView line) {
        visit(line, parser.feed(classifyMetLine(line)));
        return true;
    });
}

} // namespace fuzz
