// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "declaration.h"
#include "registry/entrysources.h"

#include <QJsonObject>
#include <QRandomGenerator>
#include <QStringList>

/// Registration files with all kinds of problems, and the fixes of these.
class RandomDirectory
{
public:
    enum class State { Good, NotJson, NotAnObject, Unreadable };
    struct File {
        QString name;
        State state;
        QString requiredGroup;
        QString disabledGroup;
        QVector<QJsonObject> entries; ///< each has a unique "mark"
    };

    explicit RandomDirectory(QRandomGenerator *random);

    const QVector<File> &files() const;
    QStringList masked() const;
    /// Replaces the files in @p directory by these.
    void writeTo(const QString &directory) const;
    /// Removes @p obstacle of the entry @p mark.
    void undo(const Obstacle &obstacle, int mark);
    void makeReadable(int mark);
    /// Returns the file and the position of the entry @p mark.
    QPair<const File *, int> find(int mark) const;

    static EntrySources sources(const QString &directory);
    static QByteArray contentOf(const File &file);

private:
    File *fileOf(int mark);
    void removePlaces(const QString &places);
    QString randomPath(QRandomGenerator *random) const;
    File randomFile(QRandomGenerator *random, int number);
    QJsonObject randomEntry(QRandomGenerator *random);

    QVector<File> m_files;
    QStringList m_masked;
    int m_lastMark = 0;
};
