// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "favoritestour.h"

#include "qmlcall.h"
#include "windowinput.h"

#include <mgconfitem.h>

#include <QEvent>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>

namespace
{
const QString s_favorite = QStringLiteral("favorite ");
const QString s_optional = QStringLiteral("system_settings/device/printing");
const QString s_added = QStringLiteral("system_settings/connectivity/bluetooth");
const QString s_dragged = QStringLiteral("system_settings/connectivity/wlan");
const QString s_dragTarget = QStringLiteral("system_settings/connectivity/hotspot");
const QStringList s_rows = {
    QStringLiteral("system_settings/look/display/brightness"),
    QStringLiteral("system_settings/look/sounds/volume"),
    QStringLiteral("system_settings/look/display/sleep"),
};
const QString s_succeeding = QStringLiteral("system_settings/device/storage/free_space");
const QString s_failing = QStringLiteral("system_settings/device/storage/format_card");
const QString s_unanswered = QStringLiteral("system_settings/device/updates/check");
const QString s_done = QStringLiteral("succeeded");
const QString s_failed = QStringLiteral("failed");
const QString s_waiting = QStringLiteral("running");
const QString s_uninstalled = QStringLiteral("system_settings/connectivity/wlan/add_network");

QStringList stored()
{
    return MGConfItem(QStringLiteral("/apps/velka-settings/favorites")).value().toStringList();
}
}

FavoritesTour::FavoritesTour(QQuickWindow *window, WindowPictures *pictures)
    : m_window(window)
    , m_pictures(pictures)
{
}

bool FavoritesTour::showPage(const QString &form)
{
    callQml(m_window, "scrollToBeginning");
    callQml(m_window, "openFavorites");
    return m_pictures->save(form + QLatin1String("-favorites"));
}

bool FavoritesTour::walkPages(const QString &form)
{
    if (!showPage(form)) {
        return false;
    }
    callQml(m_window, "setFavoritesEditing", true);
    if (!m_pictures->save(form + QLatin1String("-favorites-editing"))) {
        return false;
    }
    callQml(m_window, "setFavoritesEditing", false);
    callQml(m_window, "openFavoriteChoice", 1);
    return m_pictures->save(form + QLatin1String("-favorites-choice"));
}

bool FavoritesTour::walkChanges(const QString &form)
{
    callQml(m_window, "setDrawerOpen", false);
    callQml(m_window, "openFavorites");
    if (!m_pictures->save(form + QLatin1String("-favorites-installed"))) {
        return false;
    }
    return findItem(m_window, s_favorite + s_optional)
           || fail(QStringLiteral("A favourite does not come with its package"));
}

bool FavoritesTour::walkEdits(const QString &form)
{
    callQml(m_window, "openFavorites");
    callQml(m_window, "openFavoriteChoice", 1);
    if (!m_pictures->save(form + QLatin1String("-favorites-choice-restored")) || !add(s_added)
        || !m_pictures->save(form + QLatin1String("-favorites-added"))) {
        return false;
    }
    callQml(m_window, "openFavorites");
    callQml(m_window, "setFavoritesEditing", true);
    if (!m_pictures->save(form + QLatin1String("-favorites-added-editing")) || !drag(s_dragged, s_dragTarget)) {
        return false;
    }
    for (const QString &path : s_rows) {
        if (!remove(path)) {
            return false;
        }
    }
    callQml(m_window, "setFavoritesEditing", false);
    return m_pictures->save(form + QLatin1String("-favorites-edited"));
}

bool FavoritesTour::walkActions(const QString &form)
{
    callQml(m_window, "openFavorites");
    if (!m_pictures->save(form + QLatin1String("-favorites-reopened"))
        || !trigger(s_succeeding, s_done, form + QLatin1String("-action-done"))
        || !trigger(s_failing, s_failed, form + QLatin1String("-action-failed"))
        || !trigger(s_unanswered, s_waiting, form + QLatin1String("-action-unanswered"))) {
        return false;
    }
    const QString picture = m_pictures->file(QStringLiteral("store"));
    QFile::remove(picture);
    if (!click(m_window, s_favorite + s_uninstalled)) {
        return false;
    }
    const bool shown = m_pictures->waitFor([&picture] { return QFile::exists(picture); });
    return shown || fail(QStringLiteral("The store does not show the package of a missing service"));
}

bool FavoritesTour::add(const QString &path)
{
    const QStringList paths = stored() + QStringList(path);
    return click(m_window, QLatin1String("star ") + path) && waitForStored(paths);
}

bool FavoritesTour::remove(const QString &path)
{
    QStringList paths = stored();
    paths.removeAll(path);
    return click(m_window, QLatin1String("remove ") + path) && waitForStored(paths);
}

bool FavoritesTour::drag(const QString &path, const QString &target)
{
    QStringList paths = stored();
    paths.move(paths.indexOf(path), paths.indexOf(target));
    QPointF from;
    QPointF to;
    if (!findCenter(m_window, s_favorite + path, &from) || !findCenter(m_window, s_favorite + target, &to)) {
        return false;
    }
    sendMouse(m_window, QEvent::MouseButtonPress, from);
    sendMouse(m_window, QEvent::MouseMove, to);
    sendMouse(m_window, QEvent::MouseButtonRelease, to);
    return waitForStored(paths);
}

/// Clicks an action that has a service, and saves a picture of its outcome.
bool FavoritesTour::trigger(const QString &path, const QString &outcome, const QString &name)
{
    if (!click(m_window, s_favorite + path)) {
        return false;
    }
    const bool answered = m_pictures->waitFor([this, &outcome] {
        const QQuickItem *const message = findItem(m_window, QStringLiteral("outcome"));
        return message && message->isVisible() && message->property("outcome").toString() == outcome;
    });
    return (answered || fail(QStringLiteral("The service is not called: ") + path)) && m_pictures->save(name);
}

bool FavoritesTour::waitForStored(const QStringList &paths)
{
    return m_pictures->waitFor([&paths] { return stored() == paths; })
           || fail(QStringLiteral("Not stored: ") + paths.join(QLatin1Char(' ')));
}
