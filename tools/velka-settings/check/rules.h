// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "document.h"

namespace Check
{
class Catalogs;

using EntryRule = void (*)(const Entry &entry, Findings *findings);

/// What concerns one entry alone.
QVector<EntryRule> pathRules();
QVector<EntryRule> keyRules();
QVector<EntryRule> favoriteRules();
QVector<EntryRule> actionRules();

/// What concerns a registration file besides its entries.
void checkFileName(const QString &fileName, Findings *findings);
void checkTopLevel(const Document &document, Findings *findings);
void checkNumbers(const Document &document, Findings *findings);
void checkTitles(const Document &document, Catalogs *catalogs, Findings *findings);

void checkBlacklist(const Document &document, Findings *findings);

/// What the schema says of places where @p findings has nothing yet.
void checkRegistrationSchema(const Document &document, Findings *findings);
}
