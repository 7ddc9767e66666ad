// Reads description files from memory as the reader does from disk.
#pragma once

#include "metreader.h"

namespace fuzz {

/// Calls @p visit with each line of a file and the entry that ends in it, or null.
template <typename Visitor>
void visitMetFile(const QByteArray &content, Visitor &&visit)
{
    QTextCodec::ConverterState state;
    const QString text = decodeMetFile(content, QTextCodec::codecForLocale(), state);
    MetParser parser;
    QStringView rest(text);
    while (const auto line = takeMetLine(rest)) {
        visit(*line, parser.feed(classifyMetLine(*line)));
    }
}

} // namespace fuzz
