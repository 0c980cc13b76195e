// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applicationfiles.h"

#include <QHash>
#include <QTimer>

#include <memory>
#include <optional>

class MDesktopEntry;

/// An application of an ApplicationListing.
struct ListedApplication {
    quint64 revision; ///< that of its file
    std::shared_ptr<const MDesktopEntry> entry; ///< null when the file is not that of a visible application
};

/**
 * What the desktop files in the standard application directories contain. All models of the process share it, so that
 * the files are read and followed once. It is deleted with the last of them.
 *
 * If descriptors, memory or watches are short, it keeps what it has and looks again every few seconds.
 */
class ApplicationListing : public QObject, public std::enable_shared_from_this<ApplicationListing>
{
    Q_OBJECT

public:
    /// Returns the listing of this process with the current state of the files.
    static std::shared_ptr<ApplicationListing> shared();

    ~ApplicationListing() override;

    QStringList ids() const;
    /// Returns nothing if there is no file with this id.
    std::optional<ListedApplication> application(const QString &id) const;

Q_SIGNALS:
    /// The applications with these ids may have been added, removed or changed; compare their revisions.
    void changed(const QSet<QString> &ids);

private:
    explicit ApplicationListing(const QStringList &directories);

    void catchUp();
    void update();
    void updateAll();
    void announce();
    void startDelay();
    QSet<QString> readChanged(const QSet<QString> &ids);
    bool read(const QString &id);
    bool isOutdated() const;
    void checkProblems();

    ApplicationFiles m_files;
    QTimer m_delay;
    QTimer m_lookAgain;
    QHash<QString, ListedApplication> m_applications;
    QSet<QString> m_unannounced; ///< ids that changed() has not reported yet
    QString m_readingProblem; ///< not empty when a file has to be read again
    bool m_hasWarned = false;
};
