// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <random>

/// Writes registration files as packages might ship them: good ones, damaged ones, and ones that mean harm.
class RandomFiles
{
public:
    /// The files name @p group as one that the user belongs to.
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
