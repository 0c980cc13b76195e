# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

"""Four plain rules of searching, to compare with."""

import dataclasses
import re

MARK = "\n"  # begins each text


def words_of(text):
    return re.findall(r"\w+", text)


@dataclasses.dataclass
class Texts:
    """The texts of a page, folded and joined, because Python finds a substring faster than an element."""

    whole: str
    words: str
    first_words: set

    @classmethod
    def of(cls, texts):
        words = [words_of(text) for text in texts]
        joined = "".join(" " + word for text_words in words for word in text_words)
        return cls("".join(MARK + text for text in texts), joined, {text_words[0] for text_words in words if text_words})


def substring(texts, query):
    return query in texts.whole


def all_words_start(texts, query):
    return all(" " + word in texts.words for word in words_of(query))


def keyword_start(texts, query):
    return MARK + query in texts.whole


def first_word(texts, query):
    return not texts.first_words.isdisjoint(words_of(query)[:1])


RULES = {
    "substring": substring,
    "all words start": all_words_start,
    "keyword start": keyword_start,
    "first word": first_word,
}


class RuleIndex:
    """The pages' texts in one language."""

    def __init__(self, pages, language):
        self._titles, self._texts = {}, {}
        for page in pages:
            texts = [text.casefold() for text in page.shown_texts(language)]
            self._titles[page.name] = Texts.of(texts[:1])
            self._texts[page.name] = Texts.of(texts)

    def answer(self, rule, query):
        """Returns the names of the pages whose title matches, then of those that match otherwise."""
        query = query.casefold()
        matching = [name for name, texts in self._texts.items() if rule(texts, query)]
        return sorted(matching, key=lambda name: not rule(self._titles[name], query))
