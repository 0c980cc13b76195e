// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "models/storedfavorites.h"

#include "common/logging.h"
#include "common/messages.h"
#include "common/messagesize.h"
#include "common/stringset.h"

#include <mgconfitem.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace
{
/// Returns why no file can be opened now, empty if one can. dconf must open its database after each change, and finds no
/// value if it cannot.
QString openingError()
{
    const int descriptor = open("/", O_PATH | O_CLOEXEC);
    if (descriptor < 0) {
        return qt_error_string(errno);
    }
    close(descriptor);
    return {};
}
}

StoredFavorites::StoredFavorites(const QString &key, QObject *owner)
    : m_key(key)
    , m_item(new MGConfItem(key, owner))
    , m_shown(read())
    , m_wasUnreadable(!openingError().isEmpty())
{
    connect(m_item, &MGConfItem::valueChanged, this, &StoredFavorites::valueChanged);
}

StoredFavorites::~StoredFavorites()
{
    delete m_item;
}

QStringList StoredFavorites::read() const
{
    return m_item ? m_item->value().toStringList() : readAgain();
}

QStringList StoredFavorites::readAgain() const
{
    return MGConfItem(m_key).value().toStringList();
}

bool StoredFavorites::contains(const QString &path) const
{
    // As long as the value stays the same, the item hands out the same list.
    const QStringList paths = read();
    if (!paths.isSharedWith(m_indexed)) {
        m_indexed = paths;
        m_paths = toSet(paths);
    }
    return m_paths.contains(path);
}

bool StoredFavorites::accepts(const Edit &edit) const
{
    return edited(edit).has_value();
}

bool StoredFavorites::apply(const Edit &edit)
{
    const std::optional<QStringList> paths = edited(edit);
    if (paths) {
        write(*paths);
    }
    return paths.has_value();
}

bool StoredFavorites::applyShown(const Edit &edit)
{
    const QStringList before = read();
    const std::optional<QStringList> after = edited(edit);
    if (!after) {
        return false;
    }
    if (before == m_shown) { // else a change is still to be announced
        m_shown = *after;
    }
    write(*after);
    return true;
}

/// The list that @p edit makes of the stored one. Nothing, with a warning, if it must not be written.
std::optional<QStringList> StoredFavorites::edited(const Edit &edit) const
{
    const QString error = openingError();
    if (!error.isEmpty()) {
        qCWarning(lcSettings) << Messages::CannotReadFavorites << m_key << error;
        return {};
    }
    const QStringList paths = edit(m_wasUnreadable ? readAgain() : read());
    if (!fitsIntoMessage(paths)) {
        qCWarning(lcSettings) << Messages::TooManyFavorites << m_key;
        return {};
    }
    return paths;
}

void StoredFavorites::write(const QStringList &paths)
{
    if (m_item) {
        m_item->set(paths);
    } else { // it died with its owner in the middle of an edit
        MGConfItem(m_key).set(paths);
    }
}

void StoredFavorites::valueChanged()
{
    m_wasUnreadable = !openingError().isEmpty();
    QStringList paths = read();
    if (paths != m_shown) {
        m_shown = paths;
        Q_EMIT changed();
    }
}

#include "moc_storedfavorites.cpp"
