// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/propertyannouncer.h"
#include "toolkit/settingsentry.h"

#include <QQuickItem>

#include <memory>

class PageLoader;

/**
 * The page of an entry: the QML file that "source" in its params names.
 *
 * The page is loaded without blocking, follows the entry, and is deleted when the entry is removed.
 */
class EntryPage : public QQuickItem
{
    Q_OBJECT
    /// The path of the entry.
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    /// The entry at that path, for the host. The page has one of its own, with the same keys.
    Q_PROPERTY(SettingsEntry *entry READ entry CONSTANT)
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    /// The root of the page, null unless the status is Ready.
    Q_PROPERTY(QQuickItem *item READ item NOTIFY itemChanged)
    /// Maps with "text", "file", "line" and "column". Empty unless the status is Error.
    Q_PROPERTY(QVariantList errors READ errors NOTIFY errorsChanged)

public:
    enum Status {
        Null, ///< there is no path
        Loading,
        Ready,
        Error,
        Gone, ///< there is no entry at the path
    };
    Q_ENUM(Status)

    explicit EntryPage(QQuickItem *parent = nullptr);
    ~EntryPage() override;

    QString path() const;
    void setPath(const QString &path);
    SettingsEntry *entry() const;
    Status status() const;
    QQuickItem *item() const;
    QVariantList errors() const;

Q_SIGNALS:
    void pathChanged();
    void statusChanged();
    void itemChanged();
    void errorsChanged();

protected:
    void componentComplete() override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    /// What is shown. The page is loaded again if it changes.
    struct Content {
        QString path;
        bool exists = false;
        QVariant source;

        bool operator==(const Content &other) const;
    };

    void follow();
    void load();
    void unload();
    void startLoading();
    void finishLoading();
    void show(QQuickItem *page);
    void fail(const QVariantList &errors);
    void fail(const QString &reason);
    void forget();
    void resizePage();
    void adoptImplicitSize();

    SettingsEntry *const m_entry;
    Content m_content;
    std::unique_ptr<PageLoader> m_loader;
    QQuickItem *m_item = nullptr;
    Status m_status = Null;
    QVariantList m_errors;
    PropertyAnnouncer<EntryPage> m_announcer;
};
