// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tags.h"

#include <QString>

#include <algorithm>

namespace Check
{
const QVector<TagInfo> &tags()
{
    // clang-format off
    static const QVector<TagInfo> table{
        {Tag::ActionIncomplete, "action-incomplete", Severity::Error,
         "An action lacks its service, path or method",
         "An entry of the type \"action\" makes the D-Bus call that its \"params\" describe. Without "
         "\"remote-service\", \"remote-path\" and \"remote-method\" it fails. Only \"remote-interface\" and "
         "\"remote-arguments\" may be missing."},
        {Tag::ArgumentNull, "argument-null", Severity::Error,
         "An argument of an action is null",
         "D-Bus has no null, so the call is refused. Leave the argument out, or send an empty string."},
        {Tag::ArgumentNumber, "argument-number", Severity::Warning,
         "An argument of an action is a whole number, which travels as a double",
         "JSON does not tell whole numbers from others: on the bus every number is a double (\"d\"). "
         "A method that wants an integer refuses the call. If the method wants a double, write 1.0 in "
         "the place of 1 to say so."},
        {Tag::ArgumentsLost, "arguments-lost", Severity::Error,
         "The arguments of an action are no array",
         "\"remote-arguments\" is an array of the arguments in their order, also when there is one "
         "only. Anything else counts as no arguments at all."},
        {Tag::ArgumentsRefused, "arguments-refused", Severity::Error,
         "The arguments of an action are beyond the limits of D-Bus",
         "A call can hold 255 arguments at most, 32 levels of arrays or 21 of objects, and 16 MiB. "
         "The library refuses to send more."},
        {Tag::BlacklistElement, "blacklist-element", Severity::Error,
         "An element of the favourites blacklist is no string",
         "The favourites blacklist is an array of paths. Elements that are no strings are skipped "
         "without a message."},
        {Tag::BlacklistUnknown, "blacklist-unknown", Severity::Warning,
         "The favourites blacklist names a path that no checked file declares",
         "An element of the favourites blacklist has its effect on the entry of just that path. Is "
         "the path misspelt, or its package missing among the files that were checked?"},
        {Tag::ByteOrderMark, "byte-order-mark", Severity::Warning,
         "The file begins with a byte order mark",
         "The library skips it; other programs that read JSON need not."},
        {Tag::CustomWithoutPlace, "custom-without-place", Severity::Warning,
         "An entry of a custom type says neither grid nor list",
         "Entries whose type contains \"custom\" are offered as favourites only where \"type\" in "
         "their \"params\" says: \"grid\" or \"list\". Without it they are offered nowhere."},
        {Tag::DBusInterface, "dbus-interface", Severity::Error,
         "The interface of an action is no D-Bus name",
         "An interface is two or more names of ASCII letters, digits and underscores, joined by dots; "
         "none begins with a digit. A call with any other fails."},
        {Tag::DBusMethod, "dbus-method", Severity::Error,
         "The method of an action is no D-Bus name",
         "A method is one name of ASCII letters, digits and underscores that does not begin with a "
         "digit. A call with any other fails."},
        {Tag::DBusPath, "dbus-path", Severity::Error,
         "The object path of an action is no D-Bus path",
         "A path begins with a slash, does not end with one, and consists of names of ASCII letters, "
         "digits and underscores. A call with any other fails."},
        {Tag::DBusService, "dbus-service", Severity::Error,
         "The service of an action is no D-Bus name",
         "A service is two or more names of ASCII letters, digits, underscores and hyphens, joined by "
         "dots; none begins with a digit. A call with any other fails."},
        {Tag::DoubledKey, "doubled-key", Severity::Error,
         "A key stands twice in an object",
         "The last one counts, and the values before it are lost without a message."},
        {Tag::DuplicatePath, "duplicate-path", Severity::Error,
         "An entry is replaced by another one at the same place",
         "A place holds one entry. A later one replaces an earlier one as a whole: within a file by "
         "its position, between files by the order of their names, ignoring case. Slashes at the ends "
         "and doubled slashes make no other place."},
        {Tag::DuplicatePathGroups, "duplicate-path-groups", Severity::Warning,
         "Two files declare the same place for different groups",
         "Whoever is given both files sees one of the two entries only. To show one or the other, "
         "name the same group as \"required_group\" in the one file and as \"disabled_group\" in the "
         "other."},
        {Tag::EmptyFile, "empty-file", Severity::Error,
         "The file is empty",
         "An empty file is no JSON and is skipped with a warning. The smallest good file is {}."},
        {Tag::EntryNotObject, "entry-not-object", Severity::Error,
         "An element of \"entries\" is no object",
         "It is skipped with the warning that its path is missing."},
        {Tag::EntryRepeated, "entry-repeated", Severity::Warning,
         "An entry stands in its file twice",
         "The later one replaces the earlier one and is the same, so nothing is lost. Has one of them "
         "been meant for another place?"},
        {Tag::FavoriteMisplaced, "favorite-misplaced", Severity::Warning,
         "\"allow_favorite\" stands on the entry, where nobody reads it",
         "It belongs into \"params\" of the entry."},
        {Tag::FavoriteUnread, "favorite-unread", Severity::Warning,
         "A key for favourites has no effect with this type",
         "\"allow_favorite\" is read for entries of the type \"page\" only, \"simpleGrid\" only for "
         "types that contain \"custom\" and whose \"params\" say \"type\": \"grid\"."},
        {Tag::FromFile, "from-file", Severity::Warning,
         "\"from_file\" is replaced by the library",
         "The library sets this key of each entry to the name of its file, whatever the file says."},
        {Tag::GroupsContradict, "groups-contradict", Severity::Error,
         "The required and the disabled group are the same",
         "Nobody can both belong to a group and not belong to it: the file is never used."},
        {Tag::IdNotAscii, "id-not-ascii", Severity::Warning,
         "A translation id is not ASCII",
         "Ids are looked up in the encoding of the user's locale. Other characters than ASCII's get "
         "lost in some of them."},
        {Tag::IdUnknown, "id-unknown", Severity::Warning,
         "No catalog of the file has this translation id",
         "The catalogs that the file names were looked for where --translations says. None of them "
         "has a text for the id, in any language."},
        {Tag::IdWithoutCatalog, "id-without-catalog", Severity::Warning,
         "The file has translation ids but names no catalog",
         "Without \"translation_catalog\" the ids are found only when another package, or the "
         "program, happens to load the catalog."},
        {Tag::JsonSyntax, "json-syntax", Severity::Error,
         "The file is no JSON",
         "It is skipped as a whole, with a warning. Trailing commas, comments and single quotes are "
         "no JSON. The place is where the library's parser gave up; the mistake may be just before it."},
        {Tag::KeyMisspelt, "key-misspelt", Severity::Warning,
         "A key is unknown, but much like one that is known",
         "Keys compare exactly, case included. The library does not read this one."},
        {Tag::KeyUnknown, "key-unknown", Severity::Note,
         "A key is not known to the library",
         "At the top level it is ignored. In an entry it is carried along to the programs that show "
         "the entry, which is fine when they are known to read it."},
        {Tag::MissingCatalog, "missing-catalog", Severity::Note,
         "A catalog was not found",
         "There is no file of this catalog in the directory of translations, so its ids were not "
         "checked. Say with --translations where the compiled catalogs (.qm) are."},
        {Tag::NameAside, "name-aside", Severity::Warning,
         "The file's name puts it aside",
         "Files whose names begin with \"fake\" are never loaded: a way to take entries out of the "
         "tree for a while."},
        {Tag::NameNeverLoaded, "name-never-loaded", Severity::Error,
         "A file of this name is never loaded",
         "The library loads files whose names end in \".json\", in small letters, and that are not "
         "hidden by a dot at the beginning."},
        {Tag::Nesting, "nesting", Severity::Error,
         "Arrays and objects are nested too deeply",
         "The library's parser takes 1024 levels. A file that goes deeper is skipped as a whole, with "
         "a warning."},
        {Tag::NoEntries, "no-entries", Severity::Warning,
         "The file declares nothing",
         "\"entries\" is missing or empty."},
        {Tag::NotAnAction, "not-an-action", Severity::Warning,
         "An entry describes a D-Bus call but is no action",
         "The keys \"remote-…\" in \"params\" are read for entries of the type \"action\" only."},
        {Tag::NotPortable, "not-portable", Severity::Warning,
         "The library reads the file, other programs may not",
         "JSON does not allow what stands here, although the library's parser takes it: numbers such as "
         ".5 and 5., control characters in strings, unknown escapes and halves of surrogate pairs."},
        {Tag::NotUtf8, "not-utf8", Severity::Error,
         "The file is not UTF-8",
         "It is skipped as a whole, with a warning. Save it in UTF-8."},
        {Tag::NullValue, "null-value", Severity::Warning,
         "A value is null",
         "The library treats it as if the key was missing. Leave the key out."},
        {Tag::NumberPrecision, "number-precision", Severity::Error,
         "A whole number is not kept exactly",
         "Numbers are doubles: whole numbers are exact up to 9007199254740992. Write larger ones as "
         "strings."},
        {Tag::OrderLost, "order-lost", Severity::Error,
         "\"order\" does not survive the conversion to a whole number",
         "\"order\" is a number from -2147483648 to 2147483647. Others, and what is no number, become "
         "another number without a message."},
        {Tag::OrderRounded, "order-rounded", Severity::Warning,
         "\"order\" has a fraction",
         "It is rounded to a whole number, so that 1.5 and 2 are the same place."},
        {Tag::ParamMisplaced, "param-misplaced", Severity::Warning,
         "A key stands on the entry, but is read in \"params\" only",
         "What an action or a custom entry needs belongs into \"params\" of the entry."},
        {Tag::PathBlanks, "path-blanks", Severity::Warning,
         "A name in the path begins or ends with a blank",
         "Names compare exactly: this is another place than the one without the blank."},
        {Tag::PathEmpty, "path-empty", Severity::Error,
         "The path holds no name",
         "Such an entry gives its data to the root of the tree, which is never shown: the entry is "
         "lost."},
        {Tag::PathMissing, "path-missing", Severity::Error,
         "An entry has no path",
         "It is skipped with a warning."},
        {Tag::PathSlashes, "path-slashes", Severity::Warning,
         "The path has slashes at its ends or doubled ones",
         "The place in the tree is the same without them, but who hides the entry, or names it in the "
         "favourites blacklist, has to write it with them."},
        {Tag::PathSpelling, "path-spelling", Severity::Warning,
         "The same place is spelled in two ways",
         "Hidden entries and the favourites blacklist compare paths by their spelling: what is "
         "written in one way does not match what is written in the other."},
        {Tag::Schema, "schema", Severity::Warning,
         "The file does not follow the schema",
         "The schemas stand in /usr/share/velka-settings/schema."},
        {Tag::TitleMissing, "title-missing", Severity::Warning,
         "An entry has no title",
         "It has neither \"title\" nor \"translation_id\". Its title is \"!!\" and the name of its "
         "place."},
        {Tag::TitleMissingInLocale, "title-missing-in-locale", Severity::Warning,
         "An entry has no title in some languages",
         "The catalogs of these languages have no text for the translation id, engineering English "
         "has none either, and there is no plain \"title\". There the title is \"!!\" and the name of "
         "the place."},
        {Tag::TopLevel, "top-level", Severity::Error,
         "The top level is of the wrong kind",
         "A registration file is an object, the favourites blacklist an array. Anything else is "
         "skipped as a whole, with a warning."},
        {Tag::TypeMisspelt, "type-misspelt", Severity::Warning,
         "The type is unknown, but much like one that is known",
         "Types compare exactly, case included. A program is free to have types of its own, but this "
         "one looks like a slip."},
        {Tag::UndeclaredParent, "undeclared-parent", Severity::Note,
         "Nobody declares a place on the way to the entry",
         "When no other package declares it, its title is \"!!\" and its name. Places at the top "
         "level are not reported."},
        {Tag::Unreadable, "unreadable", Severity::Error,
         "The file cannot be read",
         "It cannot be opened, or it is no regular file. The library skips it with a warning."},
        {Tag::ValueLost, "value-lost", Severity::Error,
         "A value of the wrong type is lost",
         "The library expects another type here, and reads the value as if it was empty."},
        {Tag::WrongType, "wrong-type", Severity::Warning,
         "A value is of another type than expected",
         "The library converts it. Write it in the type that the format wants, so that all programs "
         "read the same."},
    };
    // clang-format on
    return table;
}

const TagInfo &info(Tag tag)
{
    return tags().at(int(tag));
}

std::optional<Tag> findTag(const QString &name)
{
    const auto *const it = std::find_if(tags().cbegin(), tags().cend(),
                                        [&name](const TagInfo &info) { return name == QLatin1String(info.name); });
    return it == tags().cend() ? std::nullopt : std::make_optional(it->tag);
}

const char *severityName(Severity severity)
{
    switch (severity) {
    case Severity::Ignore:
        return "ignore";
    case Severity::Note:
        return "note";
    case Severity::Warning:
        return "warning";
    case Severity::Error:
        break;
    }
    return "error";
}

std::optional<Severity> findSeverity(const QString &name)
{
    for (const Severity severity : {Severity::Ignore, Severity::Note, Severity::Warning, Severity::Error}) {
        if (name == QLatin1String(severityName(severity))) {
            return severity;
        }
    }
    return {};
}
}
