// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "previewtour.h"

#include "pluginregistry.h"
#include "qmlcall.h"
#include "treeitem.h"
#include "windowinput.h"

#include <QFile>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace
{
const QString s_name = QStringLiteral("preview");

/// Returns the beginning of a message about @p item.
QString nameOf(const TreeItem *item)
{
    return item->location().join(QLatin1Char('/')) + QStringLiteral(": ");
}
}

PreviewTour::PreviewTour(QQuickWindow *window, const PageFiles &pages)
    : m_window(window)
    , m_pages(pages)
    , m_pictures(window, m_directory.path(), [window] { return window->property("settled").toBool(); })
{
}

bool PreviewTour::openPage(const QStringList &path, bool details)
{
    if (!PluginRegistry::instance()->getItem(path)) {
        return fail(QStringLiteral("There is no entry ") + path.join(QLatin1Char('/')));
    }
    callQml(m_window, "showEntry", path, details);
    return m_pictures.save(s_name); // waits for the page: one that is deleted during its creation would warn
}

bool PreviewTour::openAllPages()
{
    TreeItem *const top = PluginRegistry::instance()->getItem({});
    const auto acceptAll = [](const TreeItem *) { return true; };
    const QList<TreeItem *> items = top->getSubitems(TreeItem::orderLessThan, acceptAll, -1);
    if (items.isEmpty()) {
        return fail(QStringLiteral("There is no entry to show"));
    }
    return std::all_of(items.cbegin(), items.cend(), [this](const TreeItem *item) { return openItem(item); });
}

bool PreviewTour::openItem(const TreeItem *item)
{
    const QStringList path = item->location();
    const bool isApplication = path.constFirst() == QLatin1String("applications");
    const bool isPage = item->count() == 0 && !isApplication
                        && m_window->property("pageTypes").toStringList().contains(item->type());
    const bool isLoaded = isPage && !PageFiles::sourceOf(item).isEmpty(); // by the window
    const QString missing = m_pages.missing(item);
    const QString error = missing.isEmpty() && !isLoaded ? m_pages.load(item, qmlEngine(m_window)) : missing;
    if (!error.isEmpty()) {
        return fail(nameOf(item) + error);
    }
    if (isApplication) {
        // Their list needs services of a device, which the sandbox does not have.
        callQml(m_window, "openDetails", path.join(QLatin1Char('/')), 0);
        return m_pictures.save(s_name);
    }
    const bool hasDetailsBesides = item->count() > 0; // otherwise the details are its page
    return openPage(path) && (!isLoaded || showsNoErrors(item)) && (!hasDetailsBesides || openPage(path, true));
}

/// Returns false, and prints the errors, if the window cannot show the page of @p item.
bool PreviewTour::showsNoErrors(const TreeItem *item) const
{
    const QQuickItem *const page = findItem(m_window, QStringLiteral("content"));
    const QVariantList errors = page ? page->property("errors").toList() : QVariantList();
    for (const QVariant &error : errors) {
        const QVariantMap values = error.toMap();
        fail(nameOf(item)
             + QStringLiteral("%1:%2: %3")
                   .arg(values.value(QStringLiteral("file")).toString(),
                        values.value(QStringLiteral("line")).toString(),
                        values.value(QStringLiteral("text")).toString()));
    }
    return errors.isEmpty();
}

bool PreviewTour::savePicture(const QString &file)
{
    if (!m_pictures.save(s_name)) {
        return false;
    }
    QFile::remove(file);
    return QFile::copy(m_pictures.file(s_name), file) || fail(QStringLiteral("Can't write ") + file);
}
