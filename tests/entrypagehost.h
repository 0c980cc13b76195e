// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "toolkit/entrypagecontent.h"

#include <QQmlEngine>
#include <QQmlIncubationController>
#include <QQuickItem>
#include <QTemporaryDir>

#include <memory>

/// The base of the tests of EntryPage: a host with pages, which QML knows as "host".
class EntryPageHost : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void setPath(const QString &path);
    /// Deletes @p object from the event loop.
    Q_INVOKABLE void deleteSoon(QObject *object);

public Q_SLOTS:
    void deletePage();

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

protected:
    /// Writes a page and returns its path.
    QString write(const QString &name, const QByteArray &qml) const;
    void open(const QString &path = s_path);
    EntryPageContent *content() const;
    EntryPageContent::Status status() const;
    QQuickItem *item() const;
    QVariantList errors() const;

    /// Loads a registration file with these entries, separated by commas.
    static void install(const QByteArray &entries);
    /// Loads another version of the file in one batch.
    static void reload(const QByteArray &entries);
    static void uninstall();
    /// Returns the declaration of the entry at s_path.
    static QByteArray entry(const QString &source, const char *title = "Volume");
    static QVariantMap error(const QString &text, const QString &file, int line, int column);
    static QString warning(const QVariantMap &error);

    static const QString s_path;

    std::unique_ptr<QQmlEngine> m_engine;
    QQmlIncubationController m_controller;
    std::unique_ptr<QQuickItem> m_page;

private:
    std::unique_ptr<QTemporaryDir> m_directory;
};
