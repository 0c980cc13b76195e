// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pagefiles.h"

#include "pluginregistry.h"
#include "treeitem.h"

#include <QDir>
#include <QDirIterator>
#include <QQmlComponent>
#include <QQmlEngine>

namespace
{
/// Returns the directories around those of @p entries: in a working copy the pages are beside them.
QStringList workingCopiesOf(const QStringList &entries)
{
    QStringList directories;
    for (const QString &file : entries) {
        const QDir directory = QFileInfo(file).absoluteDir();
        directories.append(directory.dirName() == QLatin1String("entries") ? QFileInfo(directory.path()).path()
                                                                           : directory.path());
    }
    directories.removeDuplicates();
    return directories;
}

/// Returns how many names at their ends @p a and @p b have in common.
int commonNames(const QString &a, const QString &b)
{
    const QStringList first = a.split(QLatin1Char('/'));
    const QStringList second = b.split(QLatin1Char('/'));
    int common = 0;
    while (common < qMin(first.size(), second.size())
           && first.at(first.size() - 1 - common) == second.at(second.size() - 1 - common)) {
        ++common;
    }
    return common;
}

/// Links the directory of @p source to that of @p file, because the page may import what is beside it.
void link(const QString &source, const QString &file)
{
    const QString directory = QFileInfo(source).path();
    if (QFileInfo::exists(directory)) {
        QFile::link(file, source); // fails if the file is there, too
    } else {
        QDir().mkpath(QFileInfo(directory).path());
        QFile::link(QFileInfo(file).absolutePath(), directory);
    }
}

QString errorsOf(const QQmlComponent &component)
{
    QStringList lines;
    const QList<QQmlError> errors = component.errors();
    for (const QQmlError &error : errors) {
        lines.append(error.toString());
    }
    return lines.join(QLatin1Char('\n'));
}

/// Returns the entry that the toolkit gives to the page of @p item. @p engine owns it.
QObject *createEntry(const TreeItem *item, QQmlEngine *engine)
{
    QQmlComponent component(engine);
    component.setData("import com.velka.settings.toolkit 1.0\nSettingsEntry {}", QUrl());
    QObject *const entry = component.createWithInitialProperties(
        {{QStringLiteral("path"), item->location().join(QLatin1Char('/'))}});
    entry->setParent(engine);
    return entry;
}

/// Creates the page of @p component as the toolkit does, or returns null.
QObject *createPage(QQmlComponent *component, const TreeItem *item, QQmlEngine *engine)
{
    QObject *const page = component->isReady() ? component->beginCreate(engine->rootContext()) : nullptr;
    if (!page) {
        return nullptr;
    }
    if (page->metaObject()->indexOfProperty("entry") >= 0) {
        component->setInitialProperties(
            page, {{QStringLiteral("entry"), QVariant::fromValue(createEntry(item, engine))}});
    }
    component->completeCreate();
    return page;
}
}

PageFiles::PageFiles(const QStringList &roots, const QStringList &entries)
    : m_roots(roots)
    , m_workingCopies(workingCopiesOf(entries))
{
}

QString PageFiles::sourceOf(const TreeItem *item)
{
    const QString source
        = item->value(QStringLiteral("params")).toMap().value(QStringLiteral("source")).toString();
    return source.endsWith(QLatin1String(".qml")) ? source : QString();
}

void PageFiles::install() const
{
    const QList<TreeItem *> items = PluginRegistry::instance()->getItem({})->getSubitems(
        TreeItem::orderLessThan, [](const TreeItem *item) { return !sourceOf(item).isEmpty(); }, -1);
    for (const TreeItem *item : items) {
        const QString source = sourceOf(item);
        const QString file = find(source);
        if (!file.isEmpty() && QDir::isAbsolutePath(source)) {
            link(source, file);
        }
    }
}

QString PageFiles::missing(const TreeItem *item) const
{
    const QString source = sourceOf(item);
    const bool isMissing = !source.isEmpty() && find(source).isEmpty();
    return isMissing ? QStringLiteral("There is no page %1").arg(source) : QString();
}

QString PageFiles::load(const TreeItem *item, QQmlEngine *engine) const
{
    const QString source = sourceOf(item);
    if (source.isEmpty()) {
        return {};
    }
    QQmlComponent component(engine, QUrl::fromLocalFile(find(source)));
    if (QObject *const page = createPage(&component, item, engine)) {
        page->setParent(engine); // its bindings may warn later
    }
    return component.isError() ? QStringLiteral("The page %1 does not load:\n%2").arg(source, errorsOf(component))
                               : QString();
}

QString PageFiles::find(const QString &source) const
{
    for (const QString &root : m_roots) {
        if (QFileInfo(root + source).isFile()) {
            return root + source;
        }
    }
    QString best;
    for (const QString &directory : m_workingCopies) {
        QDirIterator files(directory, {QFileInfo(source).fileName()}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            if (best.isEmpty() || commonNames(file, source) > commonNames(best, source)) {
                best = file;
            }
        }
    }
    return best;
}
