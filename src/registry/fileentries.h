// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "common/velkasettings_export.h"

#include <QByteArray>
#include <QJsonArray>
#include <QSharedData>

class QJsonObject;
class QTranslator;

/// The translators of a file's catalogs, in the order in which they are asked for a text. Null where there is none.
struct FileCatalogs {
    struct Catalog {
        const QTranslator *localized = nullptr;
        const QTranslator *engineeringEnglish = nullptr;
    };
    Catalog complementary;
    Catalog main;
};

/**
 * The entries of one file, shared by the nodes that they declare. Parsed they take more than twice the memory of their
 * text, and most are never read: only the text is kept, and is parsed again when one of them is read.
 */
class VELKASETTINGS_PRIVATE_EXPORT FileEntries : public QSharedData
{
public:
    /// @p text is the file's, null when there is none. The translators must outlive this.
    explicit FileEntries(const QJsonArray &entries, const QByteArray &text = {},
                         const FileCatalogs &catalogs = {});

    QJsonObject at(int index) const; ///< @p index must be in range
    /// Returns the entries without keeping them: they are parsed at each call, unless they are kept already.
    QJsonArray parsed() const;
    /// Returns the text that parsed() would parse, empty when the entries are kept.
    QByteArray unparsedText() const;
    static QJsonArray parse(const QByteArray &text);
    const FileCatalogs &catalogs() const;
    /// Keeps only the text, if there is one.
    void forget();

private:
    mutable QJsonArray m_entries; ///< empty while they are forgotten
    mutable QByteArray m_text; ///< null once they have been parsed again
    const FileCatalogs m_catalogs;
};
