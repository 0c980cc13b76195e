// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications.h"

#include <QMap>
#include <QRandomGenerator>
#include <QStringList>

#include <functional>

/**
 * What the library reads, changed at random, and what has to come of it. Every node belongs to one file alone, so that
 * the tree follows from the files that are there and not from their history.
 */
class SoakWorld
{
public:
    explicit SoakWorld(quint32 seed);

    QRandomGenerator &random();
    int below(int bound);
    bool chance(int percent);
    QString one(const QStringList &list); ///< any of them, empty for none

    /// Removes, masks and forgets all that the operations have made.
    void clear();

    void addFile();
    void removeFile();
    void changeFile(); ///< by removing it, for a file that is rewritten in place is not read again
    void addFileWithoutDescriptors(); ///< which is read once there are some
    void toggleMask();
    void toggleMaskFromOutside();
    void storeFavoritesFromOutside();
    void forgetFavorites();

    void addApplication();
    void removeApplication();
    void changeApplication();
    QStringList applications() const; ///< the ids of the files that are there, sorted
    QStringList listedApplications() const; ///< without the masked ones

    QStringList nodes() const; ///< the paths of all nodes that there have to be, sorted
    QString somePath(); ///< of a node or, now and then, of none
    QStringList favorites() const;
    void setFavorites(const QStringList &paths); ///< what an edit of a model has to leave in the key

    /// What is wrong with the tree or with what is stored, empty if nothing.
    QString violation() const;
    /// The same for what other processes see of the keys. Waits until writes have reached them.
    QString violationOutside() const;

private:
    void writeSomeFile();
    void writeApplication(int number);
    QStringList changedMask();

    QRandomGenerator m_random;
    const QByteArray m_configHome; ///< from before there are private applications
    Applications m_applications;
    QMap<int, QStringList> m_files; ///< number -> declared paths
    QMap<int, int> m_installed; ///< number -> how often it was written
    QStringList m_masked;
    bool m_isDamaged = false; ///< entries were lost when there were no descriptors
    QStringList m_favorites;
};

/// Whether a favourites model of the soak admits the node at @p path.
bool isAdmitted(const QString &path);

/// Runs the event loop until @p condition holds or it is clear that it never will.
bool comesTrue(const std::function<bool()> &condition);
