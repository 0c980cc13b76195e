# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later
"""The page of the C++ classes, from the comments in the installed headers."""

import re

HEADERS = ("registry/pluginregistry.h", "registry/treeitem.h", "registry/favoritesblacklist.h",
           "search/settingssearch.h", "search/searchquery.h")
MEMBERS = ("public:", "Q_SIGNALS:")
EXPORTED = re.compile(r"(class )?VELKASETTINGS(SEARCH)?_EXPORT (?P<name>\w+)[ ;:]?")
STRUCT = re.compile(r"struct (?P<name>\w+) \{")


def prose(comment):
    """The comment as Markdown, with parameters as code."""
    lines = [re.sub(r"^\s*(/\*\*|\*/|///<?|\*)? ?", "", line).rstrip() for line in comment]
    text = " ".join(" ".join(lines).replace("*/", "").split()).replace("<", "&lt;")
    return re.sub(r"@p (\w+)", r"`\1`", text[:1].upper() + text[1:])


def signature(text):
    text = re.sub(r"\b(Q_INVOKABLE|explicit|VELKASETTINGS(SEARCH)?_EXPORT) ", "", " ".join(text.split()))
    return text.replace(" override", "").rstrip(";").strip()


def declarations(lines):
    """Yields each declaration of a header with its comment: the one before it, or the one at its end."""
    comment, code = [], ""
    in_block = False
    for line in lines:
        stripped = line.strip()
        in_block = in_block or stripped.startswith("/**")
        if in_block or stripped.startswith("///"):
            comment.append(stripped)
            in_block = in_block and not stripped.endswith("*/")
            continue
        if not stripped or stripped.startswith(("#", "//", "{")):
            continue
        declaration, _, at_end = stripped.partition("///<")
        comment += [at_end] if at_end else []
        code += declaration + " "
        begins_class = re.match(r"class VELKASETTINGS(SEARCH)?_EXPORT", code) and not code.strip().endswith(";")
        if begins_class or STRUCT.match(code) or code.strip().endswith((";", ":", ")", "Q_OBJECT", "};")):
            yield code.strip(), prose(comment)
            comment, code = [], ""


def header_page(path):
    lines = []
    header = path.name if path.parent.name == "registry" else f"{path.parent.name}/{path.name}"
    shown, kind = False, ""
    for code, comment in declarations(path.read_text(encoding="utf-8").splitlines()):
        exported = EXPORTED.search(code)
        structure = STRUCT.match(code)
        if structure or (code.startswith("class ") and exported):
            lines += ["", f"## {(structure or exported)['name']}", "", f"From `<{header}>`:", "", comment, "",
                      "| Member | |", "|---|---|"]
            shown = bool(structure)
        elif exported:
            name = re.search(r"(\w+)\(", code)[1]
            lines += ["", f"## {name}()", "", f"From `<{header}>`:", "", f"`{signature(code)}`", "", comment]
        elif code.endswith(":"):
            shown = code in MEMBERS
            kind = "signal " if code == "Q_SIGNALS:" else ""
        elif shown and not code.startswith(("};", "friend")):
            lines.append(f"| {kind}`{signature(code)}` | {comment} |")
    return [*lines[1:], ""]


def page(sources, notice):
    lines = [*notice, "", "# The C++ API", "",
             "A C++ program links `VelkaSettings::velkasettings`: see [the README](../README.md#use-it-from-c). The API is",
             "for the GUI thread only. [Which pointers are valid when](architecture.md#which-pointers-are-valid-when) says",
             "how long a node may be used.", ""]
    for header in HEADERS:
        lines += header_page(sources / header)
    return "\n".join(lines).rstrip() + "\n"
