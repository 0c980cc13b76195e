// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <random>

/// Generates registration files: valid, damaged and hostile ones.
class RandomFiles
{
public:
    /// @p group is the name of a group of the user.
    RandomFiles(quint32 seed, const QString &group);

    struct File {
        QString name;
        QByteArray content;
    };
    File next();
    QByteArray blacklist();

private:
    int below(int bound);
    bool chance(int percent);
    QByteArray pick(const QList<QByteArray> &from);
    QByteArray path();
    QByteArray value(bool hostile);
    QByteArray entry(bool hostile);
    QByteArray params(const QByteArray &type, bool hostile);
    QByteArray action(bool hostile);
    QByteArray document(bool hostile);
    QByteArray damaged(QByteArray content);
    QByteArray strange();

    std::mt19937 m_random;
    const QByteArray m_group;
    int m_count = 0;
    int m_paths = 0;
};
