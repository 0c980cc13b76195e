// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "finding.h"

#include <json/value.h>

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QStringList>

#include <vector>

namespace Check
{
/// An element of "entries" that is an object: as it is written, and what the library reads of it.
struct Entry {
    explicit Entry(const Json::Value &written, const QJsonObject &read);

    const Json::Value *written;
    const Json::Value *writtenPath; ///< null when there is none
    const Json::Value *writtenParams; ///< null when they are no object
    QJsonObject read;
    QJsonObject params;
    QString path;
    QStringList names; ///< down to the place that the path leads to
    QString type;
};

/// A registration file or favourites blacklist that the library can parse.
struct Document {
    QString path; ///< as it was given
    QByteArray text; ///< as the library parses it
    Json::Value root; ///< with the offsets of its values
    QJsonValue read; ///< what the library makes of it
    std::vector<Entry> entries;
};

/// Collects what is found in one text.
class Findings
{
public:
    explicit Findings(const QByteArray &text);

    void atOffset(Tag tag, int offset, const QString &text);
    void atValue(Tag tag, const Json::Value &value, const QString &text);
    void atKey(Tag tag, const Json::Value &value, const QString &text); ///< at the key of a member
    bool isEmpty() const;
    bool hasAt(const Json::Value &value) const;

    /// All findings, by place.
    QVector<Finding> take();

private:
    const QByteArray &m_text;
    QVector<Finding> m_findings;
    QSet<int> m_offsets;
};

/// Fills @p document by its text. False, and findings that tell why, when there is no more to check. What the
/// library reads is known even then, if it reads anything.
bool parse(Document *document, Findings *findings);

const Json::Value *member(const Json::Value &object, const char *key); ///< null when there is none
QString toText(const std::string &text);
/// The value as the library makes a string of it.
QString readString(const QJsonObject &object, QLatin1String key);
}
