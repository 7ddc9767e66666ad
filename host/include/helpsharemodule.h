// The host library helpsharemodule: online help.
#pragma once

#include <QString>
#include <QtGlobal>

#ifdef HELPSHAREMODULE_LIBRARY
#define HELPSHAREMODULE_EXPORT Q_DECL_EXPORT
#else
#define HELPSHAREMODULE_EXPORT Q_DECL_IMPORT
#endif

/// Returns the text for the host's language.
HELPSHAREMODULE_EXPORT QString helpKeyWord(const QString &english, const QString &local);
/// Opens the online help at @p keyword.
HELPSHAREMODULE_EXPORT void startHelpSys(const QString &keyword);
