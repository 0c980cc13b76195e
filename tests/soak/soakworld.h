// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "applications.h"

#include <QMap>
#include <QRandomGenerator>
#include <QStringList>

#include <functional>

/**
 * Changes the input of the library at random, and knows the expected result. Every node belongs to only one file, so
 * that the tree depends on the existing files, not on their history.
 */
class SoakWorld
{
public:
    explicit SoakWorld(quint32 seed);

    QRandomGenerator &random();
    int below(int bound);
    bool chance(int percent);
    QString one(const QStringList &list); ///< a random element, empty if there is none

    /// Removes all files and values that the operations have created.
    void clear();

    void addFile();
    void removeFile();
    void addFileWithoutDescriptors(); ///< which is read once there are some
    void changeFile(); ///< removes it first, because a file that is rewritten in place is not read again
    void toggleMask();
    void toggleMaskFromOutside();
    void storeFavoritesFromOutside();
    void forgetFavorites();

    void addApplication();
    void removeApplication();
    void changeApplication();
    QStringList applications() const; ///< the sorted ids of the existing files
    QStringList listedApplications() const; ///< the same without the masked ones

    QStringList nodes() const; ///< the sorted paths of all expected nodes
    QString somePath(); ///< the path of a node or, rarely, of none
    QStringList favorites() const;
    void setFavorites(const QStringList &paths); ///< sets the expected value of the key

    /// Returns an error of the tree or of the stored values, empty if there is none.
    QString violation() const;
    /// The same for the keys as other processes read them. Waits until the writes are in the database.
    QString violationOutside() const;

private:
    void writeSomeFile();
    void writeApplication(int number);
    QStringList changedMask();

    QRandomGenerator m_random;
    const QByteArray m_configHome; ///< the value before there are private applications
    Applications m_applications;
    QMap<int, QStringList> m_files; ///< number -> declared paths
    QMap<int, int> m_installed; ///< number -> number of writes
    QStringList m_masked;
    bool m_isDamaged = false; ///< entries were lost when there were no descriptors
    QStringList m_favorites;
};

/// Returns true if a favourites model of the soak admits the node at @p path.
bool isAdmitted(const QString &path);

/// Runs the event loop until @p condition returns true or a time-out. Returns true if the condition was met.
bool comesTrue(const std::function<bool()> &condition);
