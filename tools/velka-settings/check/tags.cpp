// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tags.h"

#include <QString>

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
        {Tag::ApplicationPlace, "application-place", Severity::Warning,
         "An entry below \"applications\" does not belong to a desktop file",
         "The place of an application is \"applications/\" and the name of its desktop file, such as "
         "\"applications/maps.desktop\". Entries at other places are shown on no page."},
        {Tag::ArgumentNull, "argument-null", Severity::Error,
         "An argument of an action is null",
         "D-Bus has no null, so the library refuses the call. Omit the argument, or send an empty string."},
        {Tag::ArgumentNumber, "argument-number", Severity::Warning,
         "An argument of an action is a whole number, which is sent as a double",
         "JSON does not distinguish whole numbers from others: every number is sent as a double (\"d\"). "
         "A method that expects an integer refuses the call. If the method expects a double, write 1.0 "
         "instead of 1 to make that clear."},
        {Tag::ArgumentsLost, "arguments-lost", Severity::Error,
         "The arguments of an action are not an array",
         "\"remote-arguments\" is an array of the arguments in their order, even if there is only one. "
         "Any other value is read as no arguments."},
        {Tag::ArgumentsRefused, "arguments-refused", Severity::Error,
         "The arguments of an action exceed the limits of D-Bus",
         "A call can have 255 arguments, 32 levels of arrays or 21 of objects, and 16 MiB. The library "
         "refuses to send more."},
        {Tag::BlacklistElement, "blacklist-element", Severity::Error,
         "An element of the favourites blacklist is not a string",
         "The favourites blacklist is an array of paths. Other elements are ignored without a message."},
        {Tag::BlacklistUnknown, "blacklist-unknown", Severity::Warning,
         "The favourites blacklist contains a path that no checked file declares",
         "An element of the favourites blacklist affects only the entry with exactly that path. The "
         "path may be misspelt, or its package may not be among the checked files."},
        {Tag::ByteOrderMark, "byte-order-mark", Severity::Warning,
         "The file begins with a byte order mark",
         "The library ignores it; other programs that read JSON may not."},
        {Tag::CatalogUnusable, "catalog-unusable", Severity::Error,
         "A catalog cannot be used",
         "The file is damaged, too large or no compiled catalog, or it depends on itself or on a catalog "
         "that is missing. The library ignores it with a warning. Compile it with lrelease."},
        {Tag::CatalogName, "catalog-name", Severity::Error,
         "A file of the catalog has a name that the library does not look for",
         "The texts of a language are in CATALOG-LANGUAGE.qm, such as sound-settings-fi.qm. Only "
         "engineering English has an underscore: sound-settings_eng_en.qm."},
        {Tag::CatalogWithoutIds, "catalog-without-ids", Severity::Error,
         "A catalog was compiled without its ids",
         "Without the option -idbased, lrelease stores the texts by their source texts, and no id is "
         "found. Compile the catalog with lrelease -idbased."},
        {Tag::ControlCharacter, "control-character", Severity::Warning,
         "A path or title contains a character that cannot be seen",
         "A path with such a character cannot be told from another one, and a title with control or "
         "bidirectional characters can break the page around it. Remove the character."},
        {Tag::CustomWithoutPlace, "custom-without-place", Severity::Warning,
         "An entry of a custom type is for neither grid nor list",
         "Entries whose type contains \"custom\" are offered as the favourites that \"type\" in their "
         "\"params\" selects: \"grid\" or \"list\". Without it they are not offered."},
        {Tag::DanglingLink, "dangling-link", Severity::Error,
         "A link leads nowhere",
         "The target of the link does not exist, so nothing is loaded. Ship the file itself, or the target "
         "of the link."},
        {Tag::DBusInterface, "dbus-interface", Severity::Error,
         "The interface of an action is not a D-Bus name",
         "An interface is two or more names of ASCII letters, digits and underscores, joined by dots; "
         "none begins with a digit. A call with any other fails."},
        {Tag::DBusMethod, "dbus-method", Severity::Error,
         "The method of an action is not a D-Bus name",
         "A method is one name of ASCII letters, digits and underscores that does not begin with a "
         "digit. A call with any other fails."},
        {Tag::DBusPath, "dbus-path", Severity::Error,
         "The object path of an action is not a D-Bus path",
         "A path begins with a slash, does not end with one, and consists of names of ASCII letters, "
         "digits and underscores. A call with any other fails."},
        {Tag::DBusService, "dbus-service", Severity::Error,
         "The service of an action is not a D-Bus name",
         "A service is two or more names of ASCII letters, digits, underscores and hyphens, joined by "
         "dots; none begins with a digit. A call with any other fails."},
        {Tag::DoubledKey, "doubled-key", Severity::Error,
         "An object has the same key twice",
         "The last value counts; the earlier ones are lost without a message."},
        {Tag::DuplicatePath, "duplicate-path", Severity::Error,
         "An entry is replaced by another one with the same path",
         "A path has one entry. A later one replaces an earlier one as a whole. Within a file, the "
         "position decides; between files, the order of their names, ignoring case. Leading, trailing "
         "and doubled slashes make no difference."},
        {Tag::DuplicatePathGroups, "duplicate-path-groups", Severity::Warning,
         "Two files declare the same path for different groups",
         "Users who get both files see only one of the two entries. To show one or the other, use the "
         "same group as \"required_group\" in one file and as \"disabled_group\" in the other."},
        {Tag::EmptyFile, "empty-file", Severity::Error,
         "The file is empty",
         "An empty file is not JSON. The library ignores it with a warning. The smallest valid file is {}."},
        {Tag::EntryAtTopLevel, "entry-at-top-level", Severity::Error,
         "The top level has keys of an entry",
         "A file is an object with the array \"entries\", and each entry is an object in that array. The "
         "library ignores keys of entries at the top level."},
        {Tag::EntryNotObject, "entry-not-object", Severity::Error,
         "An element of \"entries\" is not an object",
         "The library ignores it with the warning that its path is missing."},
        {Tag::EntryRepeated, "entry-repeated", Severity::Warning,
         "A file declares the same entry twice",
         "The later one replaces the earlier one and is equal to it, so nothing is lost. One of them "
         "may have been meant for another path."},
        {Tag::FavoriteMisplaced, "favorite-misplaced", Severity::Warning,
         "\"allow_favorite\" is a key of the entry, which is not read",
         "It belongs in \"params\" of the entry."},
        {Tag::FavoriteUnread, "favorite-unread", Severity::Warning,
         "A key for favourites has no effect with this type",
         "\"allow_favorite\" is only read for the type \"page\", \"simpleGrid\" only for types that contain "
         "\"custom\" with \"type\": \"grid\" in \"params\"."},
        {Tag::FileKeyInEntry, "file-key-in-entry", Severity::Error,
         "A key of the file is in an entry, where it is not read",
         "\"required_group\", \"disabled_group\" and the catalogs apply to a file, and are only read at "
         "its top level. Entries for other groups need a file of their own."},
        {Tag::FromFile, "from-file", Severity::Warning,
         "\"from_file\" is replaced by the library",
         "The library sets this key of each entry to the name of its file."},
        {Tag::GroupsContradict, "groups-contradict", Severity::Error,
         "The required and the disabled group are the same",
         "No user can both belong to a group and not belong to it: the file is never used."},
        {Tag::HostDepth, "host-depth", Severity::Warning,
         "An entry is deeper than the host shows",
         "The vocabulary of the host says how many levels below its root it shows. Declare the entry on a higher "
         "level."},
        {Tag::HostKey, "host-key", Severity::Note,
         "The host ignores a key",
         "The vocabulary of the host lists keys of entries that have no effect there. Other hosts may use them."},
        {Tag::HostParam, "host-param", Severity::Warning,
         "The host does not read a param as it is written",
         "The vocabulary of the host lists the params of each type and their types. Others have no effect there."},
        {Tag::HostPlace, "host-place", Severity::Warning,
         "An entry is not below the root of the host",
         "The vocabulary of the host has the path of its first page. It shows entries below that, and those of "
         "applications."},
        {Tag::HostType, "host-type", Severity::Warning,
         "The host does not show entries of a type",
         "The vocabulary of the host lists the types that it shows."},
        {Tag::IdNotAscii, "id-not-ascii", Severity::Warning,
         "A translation id is not ASCII",
         "Ids are looked up in the encoding of the user's locale. In some encodings, characters outside "
         "of ASCII are lost."},
        {Tag::IdUnknown, "id-unknown", Severity::Warning,
         "No catalog of the file has this translation id",
         "None of the catalogs that the file names has a text for the id, in any language. They were "
         "looked up in the directory of --translations."},
        {Tag::IdUntranslated, "id-untranslated", Severity::Note,
         "A translation id has no text in some languages",
         "Another text is shown in these languages: engineering English, or the plain \"title\"."},
        {Tag::IdUnwritable, "id-unwritable", Severity::Warning,
         "A catalog (*.ts) cannot have this translation id",
         "lupdate writes ids without escapes of XML. With &, <, a quotation mark or a control character in one, "
         "the catalog cannot be read any more, and velka-settings translate refuses the file."},
        {Tag::IdWithoutCatalog, "id-without-catalog", Severity::Warning,
         "The file has translation ids but names no catalog",
         "Without \"translation_catalog\" the ids are only found if another package or the program happens "
         "to load the catalog."},
        {Tag::JsonSyntax, "json-syntax", Severity::Error,
         "The file is not JSON",
         "The library ignores the file with a warning. JSON has no trailing commas, comments or single "
         "quotes. The place is where the library's parser stopped; the mistake may be just before it."},
        {Tag::KeyMisspelt, "key-misspelt", Severity::Warning,
         "A key is unknown, but similar to a known one",
         "Keys compare exactly, including case. The library does not read this one."},
        {Tag::KeyUnknown, "key-unknown", Severity::Note,
         "A key is unknown to the library",
         "At the top level it is ignored. In an entry it is passed on to the programs that show the "
         "entry, which is fine if they read it."},
        {Tag::KeywordIsTitle, "keyword-is-title", Severity::Warning,
         "A keyword is the title of the entry",
         "A search looks into the titles first. Keywords are the other words that people may type."},
        {Tag::KeywordsEmpty, "keywords-empty", Severity::Warning,
         "A list of keywords has no keywords",
         "A search finds the entry by its title only, as without the list."},
        {Tag::KeywordsIdAlone, "keywords-id-alone", Severity::Warning,
         "The entry has an id of keywords, but no keywords",
         "The plain \"keywords\" are searched where the id is not translated."},
        {Tag::KeywordsRepeated, "keywords-repeated", Severity::Warning,
         "Two entries have the same keywords",
         "A search finds both entries or none. Often the list was copied from the other entry."},
        {Tag::MissingCatalog, "missing-catalog", Severity::Note,
         "A catalog was not found",
         "There is no file of this catalog in the directory of translations, so its ids were not "
         "checked. Use --translations to select the directory of the compiled catalogs (.qm)."},
        {Tag::NameAside, "name-aside", Severity::Warning,
         "The name of the file disables it",
         "Files whose names begin with \"fake\" are never loaded. This is a way to remove entries from "
         "the tree for a while."},
        {Tag::NameNeverLoaded, "name-never-loaded", Severity::Error,
         "A file with this name is never loaded",
         "The library loads files whose names end in \".json\", in lower case, and do not begin with a "
         "dot."},
        {Tag::NestedEntries, "nested-entries", Severity::Error,
         "An entry contains entries",
         "All entries are in the array \"entries\" of the file, each with its whole path. Entries in an "
         "entry are ignored."},
        {Tag::Nesting, "nesting", Severity::Error,
         "Arrays and objects are nested too deeply",
         "The library's parser reads 1024 levels. The library ignores a file with more of them, with a "
         "warning."},
        {Tag::NoEntries, "no-entries", Severity::Warning,
         "The file declares nothing",
         "\"entries\" is missing or empty."},
        {Tag::NotAnAction, "not-an-action", Severity::Warning,
         "An entry describes a D-Bus call but is not an action",
         "The keys \"remote-…\" in \"params\" are only read for the type \"action\"."},
        {Tag::NotNormalized, "not-normalized", Severity::Warning,
         "A path or title has accents as characters of their own",
         "The same text is usually written with composed characters (NFC). Paths compare exactly, so the "
         "two forms are different paths. Some file systems and keyboards produce the other form (NFD)."},
        {Tag::NotPortable, "not-portable", Severity::Warning,
         "The library reads the file, other programs may not",
         "The library's parser accepts some text that is not JSON: numbers such as .5 and 5., control "
         "characters in strings, unknown escape sequences and unpaired surrogates."},
        {Tag::NotUtf8, "not-utf8", Severity::Error,
         "The file is not UTF-8",
         "The library ignores the file with a warning. Save it in UTF-8."},
        {Tag::NullValue, "null-value", Severity::Warning,
         "A value is null",
         "The library reads it as if the key was missing. Omit the key."},
        {Tag::NumberPrecision, "number-precision", Severity::Error,
         "A whole number loses precision",
         "Numbers are doubles: whole numbers are exact up to 9007199254740992. Write larger ones as "
         "strings."},
        {Tag::OrderLost, "order-lost", Severity::Error,
         "\"order\" does not survive the conversion to a whole number",
         "\"order\" is a number from -2147483648 to 2147483647. Other values become another number without "
         "a message."},
        {Tag::OrderRounded, "order-rounded", Severity::Warning,
         "\"order\" has a fraction",
         "The library rounds it to a whole number: 1.5 and 2 are the same."},
        {Tag::ParamMisplaced, "param-misplaced", Severity::Warning,
         "A key of the entry is only read in \"params\"",
         "The keys for actions and custom entries belong in \"params\" of the entry."},
        {Tag::PathBlanks, "path-blanks", Severity::Warning,
         "A name in the path begins or ends with white space",
         "Names compare exactly: without the white space this is another path."},
        {Tag::PathEmpty, "path-empty", Severity::Error,
         "The path contains no name",
         "The data of such an entry goes to the root of the tree, which is never shown: the entry is "
         "lost."},
        {Tag::PathMissing, "path-missing", Severity::Error,
         "An entry has no path",
         "The library ignores it with a warning."},
        {Tag::PathMisspelt, "path-misspelt", Severity::Warning,
         "A path leads through a name that is similar to a declared one",
         "No entry declares the parent, but one with a similar name is declared. Names compare exactly, "
         "including case."},
        {Tag::PathSeparator, "path-separator", Severity::Warning,
         "The names in a path seem to be separated by another character",
         "Only \"/\" separates names. Dots and backslashes are parts of names."},
        {Tag::PathSlashes, "path-slashes", Severity::Warning,
         "The path has leading, trailing or doubled slashes",
         "The node in the tree is the same without them. But to mask the entry, or to add it to the "
         "favourites blacklist, its path has to be spelled with them."},
        {Tag::PathSpelling, "path-spelling", Severity::Warning,
         "The same path is spelled in two ways",
         "Masked entries and the favourites blacklist compare paths by their spelling: one spelling "
         "does not match the other."},
        {Tag::RootMissing, "root-missing", Severity::Warning,
         "A path leaves out the root that the other paths have",
         "Paths begin at the root of the tree. A page that shows the entries below \"system_settings\" "
         "does not show this entry."},
        {Tag::Schema, "schema", Severity::Warning,
         "The file does not follow the schema",
         "The schemas are in /usr/share/velka-settings/schema."},
        {Tag::Subdirectory, "subdirectory", Severity::Warning,
         "The directory of the entries has a subdirectory",
         "The library reads the files in the directory itself, and no subdirectories."},
        {Tag::TitleMissing, "title-missing", Severity::Warning,
         "An entry has no title",
         "It has neither \"title\" nor \"translation_id\". Its title is \"!!\" and the last name of its "
         "path."},
        {Tag::TitleMissingInLocale, "title-missing-in-locale", Severity::Warning,
         "An entry has no title in some languages",
         "The catalogs of these languages have no text for the translation id, engineering English "
         "has none either, and there is no plain \"title\". The title is \"!!\" and the last name of the "
         "path."},
        {Tag::TopLevel, "top-level", Severity::Error,
         "The top level has the wrong type",
         "A registration file is an object, the favourites blacklist an array. The library ignores "
         "any other file with a warning."},
        {Tag::TypeMisspelt, "type-misspelt", Severity::Warning,
         "The type is unknown, but similar to a known one",
         "Types compare exactly, including case. A program may have types of its own, but this one "
         "looks like a mistake."},
        {Tag::UndeclaredParent, "undeclared-parent", Severity::Note,
         "No checked file declares a parent of the entry",
         "If no other package declares it, its title is \"!!\" and its name. Parents at the top level "
         "are not reported."},
        {Tag::Unreadable, "unreadable", Severity::Error,
         "The file cannot be read",
         "It cannot be opened, or it is not a regular file. The library ignores it with a warning."},
        {Tag::ValueLost, "value-lost", Severity::Error,
         "A value of the wrong type is lost",
         "The library expects another type here and reads the value as if it was empty."},
        {Tag::ValueMisread, "value-misread", Severity::Error,
         "A value of the wrong type is read as another value",
         "The library expects another type here, and the value that it makes of this one is probably not "
         "meant."},
        {Tag::WrongType, "wrong-type", Severity::Warning,
         "A value does not have the expected type",
         "The library converts it. Use the type that the format defines, so that all programs read the "
         "same value."},
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
    for (const TagInfo &tag : tags()) {
        if (name == QLatin1String(tag.name)) {
            return tag.tag;
        }
    }
    return {};
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
