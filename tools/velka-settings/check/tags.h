// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QLatin1String>
#include <QVector>

#include <optional>

namespace Check
{
/// An error is something that the library refuses, loses or misreads; a warning is probably a mistake.
enum class Severity { Ignore, Note, Warning, Error };

enum class Tag {
    ActionIncomplete,
    ApplicationPlace,
    ArgumentNull,
    ArgumentNumber,
    ArgumentsLost,
    ArgumentsRefused,
    BlacklistElement,
    BlacklistUnknown,
    ByteOrderMark,
    CatalogUnusable,
    CatalogName,
    CatalogWithoutIds,
    ControlCharacter,
    CustomWithoutPlace,
    DanglingLink,
    DBusInterface,
    DBusMethod,
    DBusPath,
    DBusService,
    DoubledKey,
    DuplicatePath,
    DuplicatePathGroups,
    EmptyFile,
    EntryAtTopLevel,
    EntryNotObject,
    EntryRepeated,
    FavoriteMisplaced,
    FavoriteUnread,
    FileKeyInEntry,
    FromFile,
    GroupsContradict,
    HostDepth,
    HostKey,
    HostParam,
    HostPlace,
    HostType,
    IdNotAscii,
    IdUnknown,
    IdUntranslated,
    IdUnwritable,
    IdWithoutCatalog,
    JsonSyntax,
    KeyMisspelt,
    KeyUnknown,
    KeywordIsTitle,
    KeywordsEmpty,
    KeywordsIdAlone,
    KeywordsRepeated,
    MissingCatalog,
    NameAside,
    NameNeverLoaded,
    NestedEntries,
    Nesting,
    NoEntries,
    NotAnAction,
    NotNormalized,
    NotPortable,
    NotUtf8,
    NullValue,
    NumberPrecision,
    OrderLost,
    OrderRounded,
    ParamMisplaced,
    PathBlanks,
    PathEmpty,
    PathMissing,
    PathMisspelt,
    PathSeparator,
    PathSlashes,
    PathSpelling,
    RootMissing,
    Schema,
    Subdirectory,
    TitleMissing,
    TitleMissingInLocale,
    TopLevel,
    TypeMisspelt,
    UndeclaredParent,
    Unreadable,
    ValueLost,
    ValueMisread,
    WrongType,
};

struct TagInfo {
    Tag tag;
    const char *name;
    Severity severity; ///< the default
    const char *summary; ///< one line
    const char *explanation;
};

/// Returns all tags in the order of the enumeration.
const QVector<TagInfo> &tags();
const TagInfo &info(Tag tag);
std::optional<Tag> findTag(const QString &name);

const char *severityName(Severity severity);
std::optional<Severity> findSeverity(const QString &name);
}
