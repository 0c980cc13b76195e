// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QString;

/// Before the application object is made.
void prepareApplication();

/// Icons and font, the same on every machine. After the application object is made.
void setAppearance();

/// The warnings and worse that the program has printed since prepareApplication().
int warningCount();

/// Neither prints nor counts warnings that begin so, from now on.
void expectWarning(const QString &beginning);
/// Whether there has been one since then.
bool expectedWarningCame();
