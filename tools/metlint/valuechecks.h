// Checks the value of a key on one line.
#pragma once

#include "linter.h"
#include "metformat.h"

/// Adds diagnostics for @p value, the text after the "=", which begins at @p start, to @p diagnostics.
void checkValue(const MetKey &key, QStringView value, TextPlace start, QVector<Diagnostic> &diagnostics);
