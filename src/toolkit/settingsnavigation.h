// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/propertyannouncer.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <optional>

class SettingsEntry;
class TreeItem;

/**
 * The pages that are open, one above the other, by the paths of their entries.
 *
 * Each page is open once: to open it again goes back to it. A page whose entry is removed is closed; the root never is.
 */
class SettingsNavigation : public QObject
{
    Q_OBJECT
    /// The path of the page below all others, at first that of the tree's top. Another root closes all other pages.
    Q_PROPERTY(QString root READ root WRITE setRoot NOTIFY rootChanged)
    /// The types of entries that are pages. Others are rows of the nearest page above them.
    Q_PROPERTY(QStringList pageTypes READ pageTypes WRITE setPageTypes NOTIFY pageTypesChanged)
    /// The paths of the open pages, the root first.
    Q_PROPERTY(QStringList paths READ paths NOTIFY pathsChanged)
    /// The last of the paths.
    Q_PROPERTY(QString current READ current NOTIFY currentChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY canGoBackChanged)
    /// The path of the entry to show on the current page, empty without one.
    Q_PROPERTY(QString row READ row NOTIFY rowChanged)
    /// The pages above the root, and the row, as a text. Of one that is set, what does not exist is ignored.
    Q_PROPERTY(QString state READ state WRITE setState NOTIFY stateChanged)

public:
    explicit SettingsNavigation(QObject *parent = nullptr);

    QString root() const;
    void setRoot(const QString &root);
    QStringList pageTypes() const;
    void setPageTypes(const QStringList &types);
    QStringList paths() const;
    QString current() const;
    bool canGoBack() const;
    QString row() const;
    QString state() const;
    void setState(const QString &state);

    /// Opens the page at @p path above the others, or the nearest page above it. Returns false if there is none.
    Q_INVOKABLE bool open(const QString &path);
    /// Like open(), but closes the pages above @p page before. To be used where several pages are visible.
    Q_INVOKABLE bool openFrom(const QString &page, const QString &path);
    /// Closes the current page. Returns false if that is the root.
    Q_INVOKABLE bool back();

Q_SIGNALS:
    void rootChanged();
    void pageTypesChanged();
    void pathsChanged();
    void currentChanged();
    void canGoBackChanged();
    void rowChanged();
    void stateChanged();
    /// The row is to be shown, maybe once more.
    void rowRequested(const QString &row);
    /// The page at @p path was closed because its entry does not exist any more.
    void closed(const QString &path);

private:
    struct Place {
        QStringList pages; ///< above the root
        QString row;
    };
    struct PageAndRow {
        QString page;
        QString row; ///< empty if the page itself is meant
    };

    std::optional<PageAndRow> addressOf(const QString &path) const;
    bool isPage(const TreeItem *item) const;
    bool openAbove(const QStringList &pages, const QString &path);
    QStringList pagesUpTo(const QString &page) const;
    QString topOf(const QStringList &pages) const;
    void restore(const QStringList &pages, const QString &row);
    void moveTo(const Place &place);
    void watch();
    SettingsEntry *watched(const QString &path);
    void closeVanished();
    bool exists(const QString &path) const;

    QString m_root;
    QStringList m_pageTypes;
    Place m_place;
    QHash<QString, SettingsEntry *> m_entries; ///< those of the pages and of the row
    PropertyAnnouncer<SettingsNavigation> m_announcer;
};
