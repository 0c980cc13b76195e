// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "rules.h"

#include <algorithm>
#include <string>

namespace Check
{
namespace
{
/// Returns whether @p character ends or controls the text around it, or is not a character at all.
bool isControl(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        break;
    }
    const bool isEmbedding = character >= 0x202A && character <= 0x202E;
    const bool isIsolate = character >= 0x2066 && character <= 0x2069;
    return isEmbedding || isIsolate || character == 0xFEFF;
}

/// Returns whether @p character cannot be seen or distinguished in a path. Titles need some of these characters.
bool isInvisible(uint character)
{
    return isControl(character) || QChar::category(character) == QChar::Other_Format
           || (QChar::category(character) == QChar::Separator_Space && character != ' ');
}

bool hasRawControl(const QByteArray &text)
{
    return std::any_of(text.cbegin(), text.cend(), [](char c) { return uchar(c) < ' '; });
}

void checkCharacters(const Written &written, const QString &text, bool (*isBad)(uint), Findings *findings)
{
    if (written.kind != Written::String || hasRawControl(findings->textOf(written))) {
        return; // a raw one has a finding of its own
    }
    const std::u32string characters = text.toStdU32String();
    const auto bad = std::find_if(characters.cbegin(), characters.cend(), isBad);
    if (bad != characters.cend()) {
        findings->atValue(Tag::ControlCharacter, written,
                          QStringLiteral("remove the character U+%1, which cannot be seen")
                              .arg(QString::number(uint(*bad), 16).toUpper().rightJustified(4, QLatin1Char('0'))));
    } else if (text != text.normalized(QString::NormalizationForm_C)) {
        findings->atValue(
            Tag::NotNormalized, written,
            QStringLiteral("the accents are characters of their own (NFD): the same text in the usual "
                           "form (NFC) is not equal to it"));
    }
}

void characters(const Entry &entry, Findings *findings)
{
    if (entry.writtenPath) {
        checkCharacters(*entry.writtenPath, entry.path, isInvisible, findings);
    }
    for (const char *key : {"title", "title_short"}) {
        if (const Written *written = entry.written->member(QLatin1String(key))) {
            checkCharacters(*written, readString(entry.read, QLatin1String(key)), isControl, findings);
        }
    }
}
}

QVector<EntryRule> textRules()
{
    return {characters};
}
}
