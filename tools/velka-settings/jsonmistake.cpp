// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "jsonmistake.h"

#include "jsonscanner.h"
#include "place.h"
#include "utf16.h"

#include <QJsonParseError>

namespace
{
/// Returns the offset of the first marker of a conflict, -1 without one.
int conflictMarkerIn(const QByteArray &text)
{
    int first = -1;
    for (const char *marker : {"<<<<<<<", "=======", ">>>>>>>"}) {
        const int atLineStart = text.indexOf('\n' + QByteArray(marker));
        const int offset = text.startsWith(marker) ? 0 : atLineStart + 1;
        if ((text.startsWith(marker) || atLineStart >= 0) && (first < 0 || offset < first)) {
            first = offset;
        }
    }
    return first;
}
}

JsonMistake jsonMistakeIn(const QByteArray &text, const QJsonParseError &error)
{
    if (text.trimmed().isEmpty()) {
        return {0, QStringLiteral("the file is empty")};
    }
    if (isUtf16(text)) {
        return {0, QStringLiteral("the file is UTF-16: save it as UTF-8"), JsonMistake::Encoding};
    }
    if (error.error == QJsonParseError::IllegalUTF8String) {
        return {offsetOfError(text, error), QStringLiteral("this is not UTF-8: save the file as UTF-8"),
                JsonMistake::Encoding};
    }
    if (error.error == QJsonParseError::DeepNesting) {
        return {offsetOfError(text, error),
                QStringLiteral("arrays and objects are nested more than 1024 levels deep"), JsonMistake::Nesting};
    }
    const int marker = conflictMarkerIn(text);
    if (marker >= 0) {
        return {marker, QStringLiteral("this is the marker of a merge conflict, which has to be resolved")};
    }
    const std::optional<JsonMistake> mistake = JsonScanner(text).scan();
    return mistake ? *mistake : JsonMistake{offsetOfError(text, error), error.errorString()};
}
