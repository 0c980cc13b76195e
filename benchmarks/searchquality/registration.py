# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

"""Writes pages as a registration file with catalogs."""

import json
import subprocess
from xml.sax.saxutils import escape

CATALOG = "desktop"


def keywords_text(page, language):
    """Returns the keywords and the description as one list."""
    return ";".join(text.replace(";", ",") for text in page.shown_texts(language)[1:])


def entry(page):
    return {
        "path": page.name,
        "type": "page",
        "title": page.titles["en"],
        "translation_id": f"{page.name}-title",
        "keywords_id": f"{page.name}-keywords",
    }


def messages(pages, language):
    for page in pages:
        texts = {"title": page.titles.get(language), "keywords": keywords_text(page, language)}
        for name, text in texts.items():
            if text:
                yield (f'<message id="{page.name}-{name}"><source></source>'
                       f"<translation>{escape(text)}</translation></message>")


def write_catalog(pages, language, file):
    source = file.with_suffix(".ts")
    content = "".join(messages(pages, language))
    source.write_text(f'<TS version="2.1" language="en"><context><name></name>{content}</context></TS>')
    subprocess.run(["lrelease", "-silent", "-idbased", source, "-qm", file], check=True)
    source.unlink()


def write_registration(pages, languages, root):
    """Writes the files into a directory that is laid out like a root of the file system."""
    entries = root / "usr/share/velka-settings/entries"
    catalogs = root / "usr/share/translations"
    entries.mkdir(parents=True, exist_ok=True)
    catalogs.mkdir(parents=True, exist_ok=True)
    content = {"translation_catalog": CATALOG, "entries": [entry(page) for page in pages]}
    (entries / "desktop.json").write_text(json.dumps(content, indent=1))
    write_catalog(pages, "en", catalogs / f"{CATALOG}_eng_en.qm")
    for language in languages:
        write_catalog(pages, language, catalogs / f"{CATALOG}-{language}.qm")
