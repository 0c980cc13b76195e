// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtGlobal>

class QString;

struct Appearance {
    bool dark = false;
    qreal textScale = 1; ///< factor of the font's size
};

/// Must be called before the application object is created.
void prepareApplication();

// These must be called after the application object is created.
/// Sets icons and a font that are the same on every machine.
void setAppearance(const Appearance &appearance = {});
/// Sets the language of the texts and the direction of the layout, also for texts that are loaded later.
void setLocale(const QString &name);

/// Returns the number of warnings and errors that the program has printed since prepareApplication().
int warningCount();

/// From now on neither prints nor counts warnings that begin with @p beginning.
void expectWarning(const QString &beginning);
/// Returns true if there has been one since expectWarning().
bool expectedWarningCame();
