// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/listrow.h"

#include "registry/treeitem.h"
#include "registry/treeitem_p.h"

#include <QPointer>

using Guarded = QPointer<QObject>;
Q_DECLARE_METATYPE(Guarded)

namespace
{
bool isGuarded(const QVariant &value)
{
    return value.userType() == qMetaTypeId<Guarded>();
}
}

QObject *objectOf(const QVariant &value)
{
    const bool isObject = QMetaType::typeFlags(value.userType()) & QMetaType::PointerToQObject;
    return isObject ? value.value<QObject *>() : nullptr;
}

QString keyOf(const QVariant &value)
{
    const QObject *object = objectOf(value);
    if (!object) {
        return value.toString();
    }
    if (const auto *item = qobject_cast<const TreeItem *>(object)) {
        return item->location().join(QLatin1Char('/'));
    }
    for (const char *property : {"filePath", "fileName"}) {
        QString file = object->property(property).toString();
        if (!file.isEmpty()) {
            return file;
        }
    }
    return QString::number(quintptr(object));
}

ListRow::ListRow(const QModelIndex &source, const ListRoles &roles)
{
    m_values.resize(roles.numbers.size());
    update(source, roles);
}

QString ListRow::key() const
{
    return m_key;
}

bool ListRow::hasObject(const QObject *object) const
{
    return object && m_object == object;
}

QVariant ListRow::value(int position) const
{
    const QVariant &value = m_values.at(position);
    return isGuarded(value) ? QVariant::fromValue(value.value<Guarded>().data()) : value;
}

QVector<int> ListRow::update(const QModelIndex &source, const ListRoles &roles)
{
    QVector<int> changed;
    for (int position = 0; position < roles.numbers.size(); ++position) {
        const int role = roles.numbers.at(position);
        const QVariant value = source.data(role);
        if (role == roles.key && !hasObject(objectOf(value))) {
            m_object = objectOf(value);
            m_key = keyOf(value);
        }
        if (setValue(position, value)) {
            changed.append(role);
        }
    }
    return changed;
}

/// Returns whether the value was another one.
bool ListRow::setValue(int position, const QVariant &value)
{
    QVariant &copy = m_values[position];
    QObject *object = objectOf(value);
    if (!object) {
        const bool isOther = copy != value || copy.userType() != value.userType();
        if (isOther) {
            copy = value;
        }
        return isOther;
    }
    const bool isOther = !isGuarded(copy) || copy.value<Guarded>() != object;
    if (isOther) {
        copy = QVariant::fromValue(Guarded(object));
    }
    const auto *item = qobject_cast<TreeItem *>(object);
    if (!item || (!isOther && m_entry == TreeItemPrivate::of(item)->data)) {
        return isOther;
    }
    m_entry = TreeItemPrivate::of(item)->data;
    return true;
}
