// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQmlError>
#include <QSizeF>
#include <QVariantMap>

#include <memory>

class SettingsEntry;

/// Creates the page that a QML file describes: compiles it in a thread, and creates its objects between frames.
class PageLoader : public QObject
{
    Q_OBJECT

public:
    /// The page gets @p size, and @p entry if its root has a property of that name. Nothing is loaded before the caller
    /// returns to the event loop.
    PageLoader(QQmlEngine *engine, const QString &file, std::unique_ptr<SettingsEntry> entry, const QSizeF &size);
    ~PageLoader() override;

    /// Returns the root of the page, which the caller owns, null if it could not be created.
    std::unique_ptr<QObject> takePage();
    QList<QQmlError> errors() const;

    static bool isItem(const QObject &page);
    static void resize(QObject *item, const QSizeF &size);

Q_SIGNALS:
    /// The page has been created, or there are errors.
    void finished();

private:
    class Incubator;

    void load();
    void create(const QVariantMap &properties);
    void prepare(QObject *page);
    void deleteUnfinishedPage();
    void finishIncubation();

    const QSizeF m_size;
    SettingsEntry *const m_entry; ///< a child of this, later of a page with that property
    QQmlComponent m_component;
    std::unique_ptr<Incubator> m_incubator;
    QPointer<QObject> m_begun; ///< the root of the page that was begun last
    bool m_hasEntry = true; ///< the page that was begun last
    bool m_isSecondTime = false;
};
