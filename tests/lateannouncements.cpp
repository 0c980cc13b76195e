// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "lateannouncements.h"

#include "nextfunction.h"

#include <QByteArrayList>

#include <dconf.h>

#include <memory>

namespace
{
bool s_late = false;
QByteArrayList s_unannounced; ///< paths that were written late

struct Announcement {
    DConfClient *client;
    QByteArray path;
};

gboolean announce(gpointer data)
{
    const std::unique_ptr<Announcement> announcement(static_cast<Announcement *>(data));
    s_unannounced.removeOne(announcement->path);
    const char *const changes[] = {"", nullptr};
    g_signal_emit_by_name(announcement->client, "changed", announcement->path.constData(), changes, "");
    return G_SOURCE_REMOVE;
}

/// Called before all other handlers. Writes of this process are announced without a tag and with their whole path.
void stopEarlyAnnouncement(DConfClient *client, const char *path, const char *const *, const char *tag)
{
    if (s_late && !tag && s_unannounced.contains(path)) {
        g_signal_stop_emission_by_name(client, "changed");
    }
}
}

// The dynamic linker finds these functions before dconf's own.

extern "C" Q_DECL_EXPORT DConfClient *dconf_client_new()
{
    DConfClient *client = nextFunction(dconf_client_new, "dconf_client_new")();
    g_signal_connect(client, "changed", G_CALLBACK(stopEarlyAnnouncement), nullptr);
    return client;
}

extern "C" Q_DECL_EXPORT gboolean dconf_client_write_fast(DConfClient *client, const gchar *path, GVariant *value,
                                                          GError **error)
{
    if (s_late) {
        s_unannounced.append(path);
        g_idle_add(announce, new Announcement{client, path});
    }
    return nextFunction(dconf_client_write_fast, "dconf_client_write_fast")(client, path, value, error);
}

LateAnnouncements::LateAnnouncements()
{
    s_late = true;
}

LateAnnouncements::~LateAnnouncements()
{
    s_late = false;
}
