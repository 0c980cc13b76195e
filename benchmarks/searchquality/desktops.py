# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

"""Reads the settings pages of two desktops from their unpacked packages."""

import dataclasses
import pathlib
import re

from pluginmetadata import plugin_metadata

ENGLISH = "en"


@dataclasses.dataclass
class Page:
    name: str
    titles: dict  # by language
    keywords: dict  # by language: a list
    descriptions: dict  # by language

    def words(self, language):
        """Returns the title and the keywords that are translated, each once."""
        return distinct([self.titles.get(language), *self.keywords.get(language, [])])

    def shown_texts(self, language):
        """Returns the title, the keywords and the description, in English where they are not translated."""
        values = (texts.get(language, texts.get(ENGLISH)) for texts in (self.titles, self.keywords, self.descriptions))
        title, keywords, description = values
        return distinct([title, *(keywords or []), description])


def distinct(texts):
    """Returns the texts that are not empty, each once, whatever its case, at its first place."""
    first = {}
    for text in filter(None, texts):
        first.setdefault(text.casefold(), text)
    return list(first.values())


def languages(data, key):
    """Returns the values of a key such as Name, Name[de] by language."""
    pattern = re.compile(re.escape(key) + r"(?:\[(.+)\])?")
    matches = ((pattern.fullmatch(name), value) for name, value in data.items())
    return {match[1] or ENGLISH: value.strip() for match, value in matches if match and value.strip()}


def lists(data, key, separator):
    return {
        language: [word.strip() for word in re.split(separator, text) if word.strip()]
        for language, text in languages(data, key).items()
    }


def desktop_entry(file):
    """Returns the keys of the first group of a desktop file."""
    lines = file.read_text().partition("[Desktop Entry]\n")[2].partition("\n[")[0].splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line and not line.startswith("#"))


def gnome_page(file):
    data = desktop_entry(file)
    return Page(file.stem, languages(data, "Name"), lists(data, "Keywords", ";"), languages(data, "Comment"))


def kde_page(name, texts, keywords):
    description = languages(texts, "Description") or languages(texts, "Comment")
    return Page(name, languages(texts, "Name"), lists(keywords, "X-KDE-Keywords", "[,;]"), description)


def gnome_pages(packages):
    files = pathlib.Path(packages).glob("*/usr/share/applications/gnome-*-panel.desktop")
    return [gnome_page(file) for file in sorted(files)]


def kde_pages(packages):
    pages = {}
    for file in sorted(pathlib.Path(packages).glob("*/usr/share/kservices5/*.desktop")):
        data = desktop_entry(file)
        if data.get("X-KDE-ServiceTypes") == "KCModule":
            name = pathlib.PurePath(data["X-KDE-Library"]).name
            pages[name] = kde_page(name, data, data)
    for file in sorted(pathlib.Path(packages).glob("*/usr/lib/*/qt5/plugins/plasma/kcms/**/*.so")):
        data = plugin_metadata(file)
        if data.get("KPlugin", {}).get("Name"):
            pages[file.stem] = kde_page(file.stem, data["KPlugin"], data)
    return [pages[name] for name in sorted(pages)]


def counterparts(file):
    """Returns the pages of pages.txt with those that answer for them, in both directions."""
    gnome, kde = {}, {}
    for line in pathlib.Path(file).read_text().splitlines():
        if line and not line.startswith("#"):
            panel, *modules = line.split()
            gnome[panel] = set(modules)
            for module in modules:
                kde.setdefault(module, set()).add(panel)
    return gnome, kde
