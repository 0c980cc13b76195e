// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"
#include "written.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QStringList>

#include <vector>

class HostVocabulary;

namespace Check
{
/// An element of "entries" that is an object: as it is written, and as the library reads it.
struct Entry {
    explicit Entry(const Written &written, const QJsonObject &read, const HostVocabulary *vocabulary);

    const Written *written;
    const Written *writtenPath; ///< null when there is none
    const Written *writtenParams; ///< null if they are not an object
    QJsonObject read;
    QJsonObject params;
    QString path;
    QStringList names; ///< those in the path
    QString type;
    const HostVocabulary *vocabulary; ///< of the host, null when there is none
};

/// A registration file or favourites blacklist that the library can parse.
struct Document {
    QString path; ///< as it was given
    QByteArray text; ///< as the library parses it
    const HostVocabulary *vocabulary = nullptr; ///< of the host, null when there is none
    Written root;
    QJsonValue read; ///< as the library reads it
    std::vector<Entry> entries;
};

/// Collects the findings of one text.
class Findings
{
public:
    explicit Findings(const QByteArray &text);

    void atOffset(Tag tag, int offset, const QString &text);
    void atValue(Tag tag, const Written &value, const QString &text);
    void atKey(Tag tag, const Written &member, const QString &text);
    /// Lets hasAtKey() be true of @p member, which a finding at another place covers.
    void claim(const Written &member);
    bool isEmpty() const;
    bool hasAt(const Written &value) const;
    bool hasAtKey(const Written &member) const;
    QByteArray textOf(const Written &value) const; ///< as it is written

    /// Returns all findings, sorted by place.
    QVector<Finding> take();

private:
    const QByteArray &m_text;
    QVector<Finding> m_findings;
    QSet<int> m_offsets;
};

/// Fills @p document from its text. Returns whether the text is JSON; if not, a finding has the reason.
bool parse(Document *document, Findings *findings);

/// Returns the member of @p object whose key is not one of @p known, but seems to be meant as @p key. Null when there
/// is none, or when the object has the key.
const Written *misspeltMember(const Written &object, const QStringList &known, QLatin1String key);

/// Returns the value of @p key as the library converts it to a string.
QString readString(const QJsonObject &object, QLatin1String key);
}
