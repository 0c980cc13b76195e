// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QSharedData>

class QJsonObject;

/**
 * The entries of one file, shared by the nodes that they declare. Parsed they take more than twice the memory of their
 * text, and most are never read: only the text is kept, and is parsed again when one of them is read.
 */
class FileEntries : public QSharedData
{
public:
    /// @p text is the file's, null when there is none.
    explicit FileEntries(const QJsonArray &entries, const QByteArray &text = {});

    QJsonObject at(int index) const; ///< @p index must be in range
    /// Keeps only the text, if there is one.
    void forget();

private:
    mutable QJsonArray m_entries; ///< empty while they are forgotten
    mutable QByteArray m_text; ///< null once they have been parsed again
};
