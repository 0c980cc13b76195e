// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Must be called before the application object is created.
void prepareApplication();

/// Sets icons and a font that are the same on every machine. Must be called after the application object is created.
void setAppearance();

/// Returns the number of warnings and errors that the program has printed since prepareApplication().
int warningCount();

/// From now on neither prints nor counts warnings that begin with @p beginning.
void expectWarning(const QString &beginning);
/// Returns true if there has been one since expectWarning().
bool expectedWarningCame();
