// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "document.h"

namespace Check
{
class Catalogs;

using EntryRule = void (*)(const Entry &entry, Findings *findings);

/// Rules for a single entry.
QVector<EntryRule> pathRules();
QVector<EntryRule> textRules();
QVector<EntryRule> typeRules();
QVector<EntryRule> keyRules();
QVector<EntryRule> keywordRules();
QVector<EntryRule> favoriteRules();
QVector<EntryRule> actionRules();
/// Rules for an entry that a host with a vocabulary shows.
QVector<EntryRule> hostRules();

/// Returns the known type that the type of @p entry, an unknown one, may be meant as. Empty when there is none.
QString meantType(const Entry &entry);
/// Returns whether rules for a single type cannot be applied to @p entry.
bool hasUnclearType(const Entry &entry);

/// Rules for a registration file.
void checkFileName(const QString &fileName, Findings *findings);
void checkTopLevel(const Document &document, Findings *findings);
void checkNumbers(const Document &document, Findings *findings);
void checkKeywordLists(const Document &document, Findings *findings);
void checkTitles(const Document &document, Catalogs *catalogs, Findings *findings);

void checkBlacklist(const Document &document, Findings *findings);

/// Checks the types and lengths in the schema, at places without other findings.
void checkRegistrationSchema(const Document &document, Findings *findings);
}
