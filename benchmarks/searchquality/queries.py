# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

"""Makes queries of a page's words, as users type them."""

import math
import random
import re
import subprocess
import unicodedata

from desktops import distinct
from rules import words_of

def is_latin(text):
    return all("LATIN" in unicodedata.name(letter, "") for letter in text if letter.isalpha())


def transliterated(texts, rules):
    """Returns the texts as ICU writes them with the rules, by text."""
    texts = sorted(texts)
    command = ["uconv", "-f", "utf-8", "-t", "utf-8", "-x", rules]
    output = subprocess.run(command, input="\n".join(texts), capture_output=True, text=True, check=True)
    return dict(zip(texts, output.stdout.split("\n")))


def script_of(letter):
    return unicodedata.name(letter, "").partition(" ")[0]


def typo(text, letters, first, chance):
    """Returns the text with one mistake: in its first letter or in another one."""
    letters = [letter for letter in letters if script_of(letter) == script_of(text[0])] or letters
    position = 0 if first else chance.randrange(1, len(text))
    before, letter, after = text[:position], text[position], text[position + 1:]
    mistakes = [
        before + after,
        before + chance.choice(letters) + letter + after,
        before + chance.choice(letters) + after,
        before + after[:1] + letter + after[1:],
    ]
    return chance.choice([mistake for mistake in mistakes if mistake != text])


def single_words(texts):
    return [text for text in texts if re.fullmatch(r"\w{3,}", text)]


class QueryMaker:
    """Makes the queries of one language."""

    def __init__(self, language, pages):
        self._language = language
        words = {word for page in pages for word in page.words(language)}
        self._letters = sorted({letter for word in words for letter in word.lower() if letter.isalpha()})
        self._latin = transliterated(words, "Any-Latin; Latin-ASCII; Lower")

    def queries(self, page):
        """Yields pairs of a variant's name and the text to search for."""
        words = page.words(self._language)
        for word in words:
            yield "as is", word
            yield from self._in_latin_letters(word)
            yield from self._mistyped_text(word)
        for word in single_words(words):
            yield from self._mistyped(word)
        yield from self._two_words(page)
        if self._language != "en":
            yield from (("English", word) for word in page.words("en"))

    def _in_latin_letters(self, word):
        if self._latin[word] != word.lower():
            yield "accents dropped" if is_latin(word) else "Latin letters", self._latin[word]

    def _mistyped(self, word):
        chance = random.Random(f"{self._language} {word}")
        if len(word) >= 5:
            yield "start of the word", word[:math.ceil(len(word) * 2 / 3)]
        if len(word) >= 4:
            yield "one typo", typo(word, self._letters, False, chance)
            yield "typo in the first letter", typo(word, self._letters, True, chance)

    def _mistyped_text(self, text):
        longest = max(words_of(text), key=len, default="")
        if len(longest) >= 4:
            chance = random.Random(f"{self._language} {text}")
            yield "one typo in a text", text.replace(longest, typo(longest, self._letters, False, chance), 1)

    def _two_words(self, page):
        yield from self._random_words(page)
        words = single_words(page.words(self._language))
        for pair in zip(words, words[1:]):
            yield "two keywords", " ".join(pair)
        title = max(words_of(page.titles.get(self._language, "")), key=len, default="")
        for keyword in single_words(page.keywords.get(self._language, [])):
            if title and keyword.casefold() != title.casefold():
                yield "title and keyword", f"{title} {keyword}"

    def _random_words(self, page):
        texts = page.words(self._language)
        words = distinct([word for text in texts for word in words_of(text) if len(word) >= 3])
        chance = random.Random(f"{self._language} {page.name}")
        for word in words:
            if len(words) > 1:
                yield "two words", f"{word} {chance.choice([other for other in words if other != word])}"
