// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "propertylog.h"

#include <QMetaMethod>
#include <QMetaProperty>

#include <algorithm>
#include <utility>

PropertyLog::PropertyLog(QObject *object, const QMetaObject &meta)
    : m_object(object)
{
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("record()"));
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        m_values.insert(QLatin1String(property.name()), property.read(object));
        if (property.hasNotifySignal()) {
            connect(object, property.notifySignal(), this, slot);
        }
    }
}

QStringList PropertyLog::take()
{
    return std::exchange(m_changes, {});
}

bool PropertyLog::isRight() const
{
    const QStringList names = m_values.keys();
    return m_hasOnlyChanges && std::all_of(names.begin(), names.end(), [this](const QString &name) {
               return m_object->property(name.toLatin1().constData()) == m_values.value(name);
           });
}

void PropertyLog::record()
{
    const QByteArray signal = m_object->metaObject()->method(senderSignalIndex()).name();
    const QByteArray name = signal.left(signal.size() - int(qstrlen("Changed")));
    const QVariant value = m_object->property(name.constData());
    const QVariant announced = std::exchange(m_values[QLatin1String(name)], value);
    m_hasOnlyChanges = m_hasOnlyChanges && announced != value;
    m_changes.append(QLatin1String(name));
}
