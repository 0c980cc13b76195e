// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QHash>
#include <QObject>
#include <QVector>

class ApplicationItem;

/**
 * The rows of a list of applications, which finds them by what their desktop files say. The items are not owned.
 *
 * The index is built by the first look-up, and again by the first one after a desktop file has changed or gone.
 */
class ApplicationRows : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const QVector<ApplicationItem *> &items() const;
    void append(ApplicationItem *item);
    /// Removes all rows and returns their items.
    QVector<ApplicationItem *> takeAll();

    /// The first row whose application has this D-Bus service name, -1 when there is none.
    int rowOfApplicationId(const QString &applicationId);
    /// The item of the first row whose desktop file has this name, null when there is none.
    ApplicationItem *itemOfDesktopFile(const QString &name);

private:
    void buildIndex();
    void dropIndex();

    QVector<ApplicationItem *> m_items;
    bool m_isIndexed = false;
    QHash<QString, int> m_byApplicationId;
    QHash<QString, ApplicationItem *> m_byDesktopFile;
};
