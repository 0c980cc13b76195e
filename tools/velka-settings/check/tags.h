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
    ArgumentNull,
    ArgumentNumber,
    ArgumentsLost,
    ArgumentsRefused,
    BlacklistElement,
    BlacklistUnknown,
    ByteOrderMark,
    CatalogUnusable,
    CustomWithoutPlace,
    DBusInterface,
    DBusMethod,
    DBusPath,
    DBusService,
    DoubledKey,
    DuplicatePath,
    DuplicatePathGroups,
    EmptyFile,
    EntryNotObject,
    EntryRepeated,
    FavoriteMisplaced,
    FavoriteUnread,
    FromFile,
    GroupsContradict,
    IdNotAscii,
    IdUnknown,
    IdWithoutCatalog,
    JsonSyntax,
    KeyMisspelt,
    KeyUnknown,
    MissingCatalog,
    NameAside,
    NameNeverLoaded,
    Nesting,
    NoEntries,
    NotAnAction,
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
    PathSlashes,
    PathSpelling,
    Schema,
    TitleMissing,
    TitleMissingInLocale,
    TopLevel,
    TypeMisspelt,
    UndeclaredParent,
    Unreadable,
    ValueLost,
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
