// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

class QLocale;
class QString;

/// Returns the path of the file that QTranslator::load() would load with the same arguments, or an empty string when
/// there is none.
QString findCatalog(const QString &name, const QString &directory);
QString findCatalog(const QLocale &locale, const QString &name, const QString &prefix, const QString &directory);
