// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/storedblacklist.h"

#include "common/constants.h"
#include "common/messages.h"
#include "registry/blacklistfile.h"

#include <QDebug>
#include <QTimer>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

StoredBlacklist::StoredBlacklist(QObject *parent)
    : QObject(parent)
{
    if (!read()) {
        qWarning() << Messages::CannotReadBlacklist << Constants::FavoritesBlacklistFile;
        m_retry = new QTimer(this);
        connect(m_retry, &QTimer::timeout, this, &StoredBlacklist::readAgain);
        m_retry->start(2000ms);
    }
}

bool StoredBlacklist::isRead() const
{
    return !m_retry;
}

QSet<QString> StoredBlacklist::paths() const
{
    return m_paths;
}

bool StoredBlacklist::read()
{
    QString shortage;
    m_paths = readBlacklistFile(Constants::FavoritesBlacklistFile, &shortage);
    return shortage.isEmpty();
}

void StoredBlacklist::readAgain()
{
    if (read()) {
        std::exchange(m_retry, nullptr)->deleteLater();
        Q_EMIT readLate();
    }
}

#include "moc_storedblacklist.cpp"
