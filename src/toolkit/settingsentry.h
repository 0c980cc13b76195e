// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QSharedPointer>
#include <QVariantList>
#include <QVariantMap>

class EntryState;
class FavoritesList;
struct EntryChange;
struct WatchedPath;

/**
 * One entry of the settings tree, live: the values of the node at "path" for as long as there is one, and empty values
 * otherwise.
 *
 * The object outlives its node: files that come and go, and masks, change its values. They change together, after each
 * batch of the registry, and each signal is emitted only if its value has changed.
 */
class SettingsEntry : public QObject
{
    Q_OBJECT
    /// Names joined by "/". Empty names are ignored; a path without names has no entry.
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    /// True if the tree has a node there. One that no file declares has no "file".
    Q_PROPERTY(bool exists READ exists NOTIFY existsChanged)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(QString shortTitle READ shortTitle NOTIFY shortTitleChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY iconChanged)
    Q_PROPERTY(QString controlIcon READ controlIcon NOTIFY controlIconChanged)
    Q_PROPERTY(QString type READ type NOTIFY typeChanged)
    Q_PROPERTY(QVariantMap params READ params NOTIFY paramsChanged)
    Q_PROPERTY(QVariantMap data READ data NOTIFY dataChanged)
    Q_PROPERTY(QString file READ file NOTIFY fileChanged)
    /// Maps with "title" and "path", from the top of the tree down to the entry itself.
    Q_PROPERTY(QVariantList breadcrumb READ breadcrumb NOTIFY breadcrumbChanged)
    /// Empty for an entry at the top.
    Q_PROPERTY(QString parentPath READ parentPath NOTIFY parentPathChanged)
    Q_PROPERTY(int childCount READ childCount NOTIFY childCountChanged)
    /// True if the stored list names the path. Writing it edits the list, and sets the user-modified flag before.
    Q_PROPERTY(bool favorite READ favorite WRITE setFavorite NOTIFY favoriteChanged)
    /// The dconf key of that list, at first the one of FavoritesModel.
    Q_PROPERTY(QString favoritesKey READ favoritesKey WRITE setFavoritesKey NOTIFY favoritesKeyChanged)
    /// The dconf key of that flag. At first empty, so that there is none.
    Q_PROPERTY(QString userModifiedKey READ userModifiedKey WRITE setUserModifiedKey NOTIFY userModifiedKeyChanged)

public:
    explicit SettingsEntry(QObject *parent = nullptr);
    ~SettingsEntry() override;

    QString path() const;
    void setPath(const QString &path);

    bool exists() const;
    QString title() const;
    QString shortTitle() const;
    QString icon() const;
    QString controlIcon() const;
    QString type() const;
    QVariantMap params() const;
    QVariantMap data() const;
    QString file() const;
    QVariantList breadcrumb() const;
    QString parentPath() const;
    int childCount() const;

    bool favorite() const;
    void setFavorite(bool favorite);
    QString favoritesKey() const;
    void setFavoritesKey(const QString &key);
    QString userModifiedKey() const;
    void setUserModifiedKey(const QString &key);

    // For the watcher and the list
    bool isWatching(const WatchedPath *path) const;
    /// Emits the signals of the properties that @p change concerns.
    void notify(const EntryChange &change);
    void updateFavorite();

Q_SIGNALS:
    void pathChanged();
    void existsChanged();
    void titleChanged();
    void shortTitleChanged();
    void iconChanged();
    void controlIconChanged();
    void typeChanged();
    void paramsChanged();
    void dataChanged();
    void fileChanged();
    void breadcrumbChanged();
    void parentPathChanged();
    void childCountChanged();
    void favoriteChanged();
    void favoritesKeyChanged();
    void userModifiedKeyChanged();

private:
    struct Property {
        void (SettingsEntry::*changed)();
        bool (*concerns)(const EntryChange &change);
    };
    static const Property s_properties[11];

    struct Announcement {
        bool isStale = true; ///< a handler has changed the entry
        bool hasOtherBreadcrumb;
        bool hasUnknownTitles;
    };

    const EntryState &state() const;
    QString normalizedPath() const;
    void announce(const Property &property, EntryState *announced);
    void watch();

    QString m_path;
    QString m_favoritesKey;
    QString m_userModifiedKey;
    QSharedPointer<FavoritesList> m_favorites; ///< null without a path or a key
    const WatchedPath *m_watched = nullptr; ///< null without a path
    Announcement *m_announcement = nullptr; ///< the running one
    bool m_wasFavorite = false; ///< what was announced last
};
