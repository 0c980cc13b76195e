// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// What the Settings application of a system, the host, understands.
class HostVocabulary
{
public:
    /// The place of the host's file.
    static QString systemPath();
    /// Reads the file at @p path. Returns nothing, and sets @p problem, when it cannot be used.
    static std::optional<HostVocabulary> read(const QString &path, QString *problem);

    QStringList types() const; ///< those that the host shows
    QStringList pageTypes() const; ///< those that open a page, with the library's, which always do
    QString descriptionOf(const QString &type) const;
    /// Returns the schemas of the params of @p type, by name. Each has the key "type".
    QJsonObject paramsOf(const QString &type) const;

    QStringList root() const; ///< the names in the path of its first page; empty if that has all entries
    int depth() const; ///< how many levels below the root it shows, 0 without a limit
    QStringList ignoredKeys() const; ///< of entries

private:
    QJsonObject valueOf(const QString &type) const;
    QString parse(const QByteArray &json);
    QString problem() const;

    QJsonObject m_object;
};
