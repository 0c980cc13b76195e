// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/propertyannouncer.h"
#include "toolkit/settingsentry.h"

#include <QQmlParserStatus>
#include <QSizeF>
#include <QVariantList>

#include <memory>

class PageLoader;

/**
 * What an EntryPage shows: the page of an entry, which is the QML file that "source" in its params names.
 *
 * The page is loaded without blocking, follows the entry, and is deleted when the entry is removed. This class knows
 * items as objects only, so that the import of the module does not load Qt Quick. Its parent is the item around it, that of
 * EntryPage.qml.
 */
class EntryPageContent : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    /// The size that the page always has.
    Q_PROPERTY(QSizeF size READ size WRITE setSize NOTIFY sizeChanged)
    /// The path of the entry.
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    /// The entry at that path, for the host. The page has one of its own, with the same keys.
    Q_PROPERTY(SettingsEntry *entry READ entry CONSTANT)
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    /// The root of the page, null unless the status is Ready.
    Q_PROPERTY(QObject *item READ item NOTIFY itemChanged)
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

    explicit EntryPageContent(QObject *parent = nullptr);
    ~EntryPageContent() override;

    QSizeF size() const;
    void setSize(const QSizeF &size);

    QString path() const;
    void setPath(const QString &path);
    SettingsEntry *entry() const;
    Status status() const;
    QObject *item() const;
    QVariantList errors() const;

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void sizeChanged();
    void pathChanged();
    void statusChanged();
    void itemChanged();
    void errorsChanged();

private:
    /// What is shown. The page is loaded again if it changes.
    struct Shown {
        QString path;
        bool exists = false;
        QVariant source;

        bool operator==(const Shown &other) const;
    };

    void follow();
    void load();
    void unload();
    void startLoading();
    void finishLoading();
    void show(QObject *page);
    void fail(const QVariantList &errors);
    void fail(const QString &reason);
    void forget();
    void resizePage();

    SettingsEntry *const m_entry;
    QSizeF m_size;
    bool m_isComplete = false;
    Shown m_shown;
    std::unique_ptr<PageLoader> m_loader;
    QObject *m_item = nullptr;
    Status m_status = Null;
    QVariantList m_errors;
    PropertyAnnouncer<EntryPageContent> m_announcer;
};
