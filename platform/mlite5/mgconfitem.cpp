// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "mgconfitem.h"

#include "databaseflag.h"
#include "dconfvariant.h"
#include "printable.h"

#include <QDataStream>
#include <QIODevice>
#include <QTimer>

#include <dconf.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <utility>

using namespace std::chrono_literals;

namespace
{
constexpr auto RetryDelay = 1000ms;
// The rule with which dconf watches a key has no more than 1024 bytes, of which the key gets these.
constexpr int MaxKeySize = 900;
// A bus takes twice as much by default. It ends the connection, for all keys, over a larger message.
constexpr gsize MaxValueSize = gsize(16) * 1024 * 1024;

/// Returns @p utf8 as it is logged.
QByteArray shown(const QByteArray &utf8)
{
    return printable(QString::fromUtf8(utf8)).toUtf8();
}

// GIO ends the process when the session bus ends, unless the connection, which dconf shares, has this disabled.
// Connecting can take long, so a thread does it. The connection is never released: the next one would have the default
// again.
void surviveSessionBus()
{
    const auto keepProcess = [](gpointer) -> gpointer {
        static GDBusConnection *const connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        if (connection) {
            g_dbus_connection_set_exit_on_close(connection, FALSE);
        }
        return nullptr;
    };
    g_thread_unref(g_thread_new("session-bus", keepProcess, nullptr));
}

DConfClient *makeClient()
{
    surviveSessionBus();
    return dconf_client_new();
}

/// Returns true if as many descriptors are free as connecting takes. GLib ends the process if it cannot create a pipe.
bool canConnect()
{
    constexpr int Needed = 16;
    std::array<int, Needed> descriptors;
    std::generate(descriptors.begin(), descriptors.end(), [] { return open("/", O_PATH | O_CLOEXEC); });
    const bool areFree = descriptors.back() >= 0;
    for (const int descriptor : descriptors) {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
    return areFree;
}

/// Returns the one client of this process, which is created on first use and never deleted. Null while it cannot be
/// created.
DConfClient *client()
{
    static DConfClient *client = nullptr;
    if (!client && canConnect()) {
        client = makeClient();
    }
    return client;
}

// Equal bytes are equal values of equal types. QVariant compares 1 and "1" as equal.
QByteArray fingerprint(const QVariant &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

// Returns the same value, marked as trusted: for the elements of an untrusted list GLib takes quadratic time.
GVariantPointer trusted(const GVariantPointer &value)
{
    const GVariantPointer normal(g_variant_get_normal_form(value.get()));
    const std::unique_ptr<GBytes, decltype(&g_bytes_unref)> bytes(g_variant_get_data_as_bytes(normal.get()),
                                                                  g_bytes_unref);
    return GVariantPointer(
        g_variant_ref_sink(g_variant_new_from_bytes(g_variant_get_type(normal.get()), bytes.get(), TRUE)));
}

GVariantPointer readOnce(const QByteArray &path)
{
    const GVariantPointer value(dconf_client_read(client(), path.constData()));
    return value ? trusted(value) : nullptr;
}

bool isEqual(const GVariantPointer &a, const GVariantPointer &b)
{
    return a && b ? g_variant_equal(a.get(), b.get()) : !a && !b;
}

GVariantPointer readDefault(const QByteArray &path)
{
    return GVariantPointer(dconf_client_read_full(client(), path.constData(), DCONF_READ_DEFAULT_VALUE, nullptr));
}

// While a write reaches the database, dconf may return the previous value for a moment.
GVariantPointer readKey(const QByteArray &path)
{
    GVariantPointer value = readOnce(path);
    for (;;) {
        GVariantPointer again = readOnce(path);
        if (isEqual(value, again)) {
            return value;
        }
        value = std::move(again);
    }
}

QByteArray pathOfKey(const QString &key)
{
    const QByteArray path = key.toUtf8();
    const bool isValid = path.size() <= MaxKeySize && isStorable(key) && dconf_is_key(path.constData(), nullptr);
    return isValid ? path : QByteArray();
}

// dconf does not notify of a write that changes nothing, but may compare with the value before the last one.
void notify(const QByteArray &path)
{
    const char *const changes[] = {"", nullptr};
    g_signal_emit_by_name(client(), "changed", path.constData(), changes, nullptr);
}

/// The number of notifications that items of this process have handled.
int s_notifications = 0;
/// The number of writes that this process has begun, and of notifications of any key.
quint64 s_changes = 0;

DatabaseFlag &databaseFlag()
{
    static DatabaseFlag flag;
    return flag;
}

/// Returns another number whenever any value may have changed since the last call.
quint64 generation()
{
    return databaseFlag().generation() + s_changes;
}

/// Returns false while dconf would find no value because it cannot open its database.
bool isReadable()
{
    if (!client()) {
        return false;
    }
    databaseFlag().generation();
    return databaseFlag().canOpenDatabase();
}

/// Returns the value, or nothing if it cannot be read now.
std::optional<GVariantPointer> readStored(const QByteArray &path)
{
    if (!isReadable()) {
        return std::nullopt;
    }
    GVariantPointer value = readKey(path);
    // The database may have been replaced just before it was read.
    return isReadable() ? std::optional<GVariantPointer>(std::move(value)) : std::nullopt;
}
}

class MGConfItemPrivate
{
public:
    MGConfItemPrivate(MGConfItem *item, const QString &key);
    ~MGConfItemPrivate();

    QVariant value() const;
    void beginWrite(const GVariantPointer &value);

    const QString m_key;
    const QByteArray m_path; ///< empty when the key is invalid
    std::optional<QByteArray> m_written; ///< until the write is notified of

private:
    static void changed(DConfClient *, const char *prefix, const char *const *changes, const char *tag,
                        MGConfItemPrivate *self);
    bool concerns(const char *prefix, const char *const *changes) const;
    void watch();
    void updateOnceInATurn();
    void endTurn();
    void updateLater();
    void update();
    bool read();

    MGConfItem *const m_item;
    mutable QVariant m_value; ///< as it was read last; the key's value in that generation
    mutable std::optional<quint64> m_generation;
    QByteArray m_seen;
    mutable std::optional<GVariantPointer> m_handedOut; ///< the last result of value() since m_seen was read
    gulong m_handler = 0;
    bool m_isUpdatedInTurn = false;
    bool m_isOutdated = false; ///< since the update in this turn
    bool m_isUpdateScheduled = false;
};

MGConfItemPrivate::MGConfItemPrivate(MGConfItem *item, const QString &key)
    : m_key(key)
    , m_path(pathOfKey(key))
    , m_item(item)
{
    if (m_path.isEmpty()) {
        qWarning("MGConfItem: invalid key \"%s\"", qUtf8Printable(printable(key.left(MaxKeySize))));
        return;
    }
    // Watch before the first read. Otherwise a change in between would be lost.
    watch();
    if (!read()) {
        qWarning("MGConfItem: cannot read \"%s\" yet", shown(m_path).constData());
        m_seen = fingerprint({});
        updateLater();
    }
}

MGConfItemPrivate::~MGConfItemPrivate()
{
    if (m_handler == 0) {
        return;
    }
    dconf_client_unwatch_fast(client(), m_path.constData());
    g_signal_handler_disconnect(client(), m_handler);
}

QVariant MGConfItemPrivate::value() const
{
    if (m_path.isEmpty()) {
        return {};
    }
    const quint64 current = generation();
    if (m_generation == current) {
        return m_value;
    }
    std::optional<GVariantPointer> stored = readStored(m_path);
    if (stored) {
        m_value = fromGVariant(stored->get());
        m_handedOut = std::move(stored);
        m_generation = current;
    }
    return m_value;
}

void MGConfItemPrivate::beginWrite(const GVariantPointer &value)
{
    m_written = fingerprint(fromGVariant(value ? value.get() : readDefault(m_path).get()));
}

void MGConfItemPrivate::changed(DConfClient *, const char *prefix, const char *const *changes, const char *tag,
                                MGConfItemPrivate *self)
{
    ++s_changes;
    if (!self->concerns(prefix, changes)) {
        return;
    }
    ++s_notifications;
    const bool isOfOtherProcess = tag && *tag;
    if (isOfOtherProcess) {
        self->updateOnceInATurn();
    } else {
        self->update();
    }
}

bool MGConfItemPrivate::concerns(const char *prefix, const char *const *changes) const
{
    for (; *changes; ++changes) {
        const QByteArray path = QByteArray(prefix) + *changes;
        if (path == m_path || (path.endsWith('/') && m_path.startsWith(path))) {
            return true;
        }
    }
    return false;
}

void MGConfItemPrivate::watch()
{
    if (m_handler == 0 && client()) {
        m_handler = g_signal_connect(client(), "changed", G_CALLBACK(changed), this);
        dconf_client_watch_fast(client(), m_path.constData());
    }
}

// Others may write faster than handlers of valueChanged() read, and each of them would find another value.
void MGConfItemPrivate::updateOnceInATurn()
{
    if (m_isUpdatedInTurn) {
        m_isOutdated = true;
        return;
    }
    m_isUpdatedInTurn = true;
    QMetaObject::invokeMethod(
        m_item, [this] { endTurn(); }, Qt::QueuedConnection);
    update();
}

void MGConfItemPrivate::endTurn()
{
    m_isUpdatedInTurn = false;
    if (std::exchange(m_isOutdated, false)) {
        updateOnceInATurn();
    }
}

void MGConfItemPrivate::updateLater()
{
    if (std::exchange(m_isUpdateScheduled, true)) {
        return;
    }
    QTimer::singleShot(RetryDelay, m_item, [this] {
        m_isUpdateScheduled = false;
        update();
    });
}

void MGConfItemPrivate::update()
{
    const auto written = std::exchange(m_written, std::nullopt);
    watch();
    const QByteArray before = m_seen;
    if (!read()) {
        updateLater();
        return;
    }
    // A caller who read a value that has been replaced by the one before it needs a notification, too.
    const auto handedOut = std::exchange(m_handedOut, std::nullopt);
    if (written && *written != m_seen) {
        // The write has already failed, and dconf notifies of that next: the writer must find out which value remains.
        m_seen = *written;
        return;
    }
    if (m_seen != before || (handedOut && fingerprint(fromGVariant(handedOut->get())) != m_seen)) {
        Q_EMIT m_item->valueChanged(); // a handler may delete the item
    }
}

bool MGConfItemPrivate::read()
{
    const std::optional<GVariantPointer> stored = readStored(m_path);
    if (stored) {
        m_value = fromGVariant(stored->get());
        m_seen = fingerprint(m_value);
    }
    return stored.has_value();
}

MGConfItem::MGConfItem(const QString &key, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<MGConfItemPrivate>(this, key))
{
}

MGConfItem::~MGConfItem() = default;

QString MGConfItem::key() const
{
    return d->m_key;
}

QVariant MGConfItem::value() const
{
    return d->value();
}

QVariant MGConfItem::value(const QVariant &defaultValue) const
{
    const QVariant stored = d->value();
    return stored.isValid() ? stored : defaultValue;
}

void MGConfItem::set(const QVariant &value)
{
    if (d->m_path.isEmpty()) {
        return;
    }
    const GVariantPointer stored = toGVariant(value);
    if (value.isValid() && !stored) {
        qWarning("MGConfItem: cannot store the value of \"%s\"", shown(d->m_path).constData());
        return;
    }
    if (stored && g_variant_get_size(stored.get()) > MaxValueSize) {
        qWarning("MGConfItem: the value of \"%s\" is too large", shown(d->m_path).constData());
        return;
    }
    if (!client()) {
        qWarning("MGConfItem: cannot write \"%s\": no descriptor is free", shown(d->m_path).constData());
        return;
    }
    // Handlers of valueChanged() run before the write returns, and may delete the item.
    const QByteArray path = d->m_path;
    const int before = s_notifications;
    d->beginWrite(stored);
    ++s_changes;
    GError *error = nullptr;
    if (!dconf_client_write_fast(client(), path.constData(), stored.get(), &error)) {
        d->m_written.reset();
        qWarning("MGConfItem: cannot write \"%s\": %s", shown(path).constData(),
                 shown(error->message).constData());
        g_error_free(error);
    } else if (s_notifications == before) {
        notify(path);
    }
}

#include "moc_mgconfitem.cpp"
