// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QSet>
#include <QString>

class QTimer;

/// The favourites blacklist as it was when this was created, or as soon as it could be read.
class StoredBlacklist : public QObject
{
    Q_OBJECT

public:
    /// Reads it. While descriptors or memory are short, logs one warning and tries again every two seconds.
    explicit StoredBlacklist(QObject *parent);

    bool isRead() const;
    QSet<QString> paths() const; ///< empty until it is read

Q_SIGNALS:
    /// Emitted when it is read later than in the constructor.
    void readLate();

private:
    bool read();
    void readAgain();

    QSet<QString> m_paths;
    QTimer *m_retry = nullptr; ///< null once it is read
};
