// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "watchedentry.h"

#include <QMetaProperty>

#include <utility>

WatchedEntry::WatchedEntry(const char *path)
{
    setPath(text(path));
    const int slot = staticMetaObject.indexOfSlot("record()");
    for (int i = SettingsEntry::staticMetaObject.propertyOffset();
         i < SettingsEntry::staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = SettingsEntry::staticMetaObject.property(i);
        connect(this, property.notifySignal(), this, staticMetaObject.method(slot));
        m_values.insert(QLatin1String(property.name()), property.read(this));
    }
}

QStringList WatchedEntry::takeChanges()
{
    QStringList changes = std::exchange(m_changes, {});
    changes.sort();
    return changes;
}

bool WatchedEntry::isAsAnnounced() const
{
    bool isEqual = m_announcesOnlyChanges;
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it) {
        isEqual = isEqual && property(it.key().toLatin1().constData()) == it.value();
    }
    return isEqual;
}

void WatchedEntry::record()
{
    const QByteArray signal = metaObject()->method(senderSignalIndex()).name();
    const QByteArray name = signal.left(signal.size() - int(qstrlen("Changed")));
    QVariant &value = m_values[QLatin1String(name)];
    m_announcesOnlyChanges = m_announcesOnlyChanges && value != property(name.constData());
    value = property(name.constData());
    m_changes.append(QLatin1String(name));
}

#include "moc_watchedentry.cpp" // not with those of the other classes: only some tests link the toolkit
