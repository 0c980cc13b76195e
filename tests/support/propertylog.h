// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>

/// Records the changes that an object announces of the properties of one of its classes.
class PropertyLog : public QObject
{
    Q_OBJECT

public:
    /// @p object must live as long as this.
    PropertyLog(QObject *object, const QMetaObject &meta);

    /// Returns the names of the properties whose change was announced since the last call.
    QStringList take();
    /// Returns true if each property has the value that was announced last, and none was announced without a change.
    bool isRight() const;

private Q_SLOTS:
    void record();

private:
    const QObject *const m_object;
    QVariantMap m_values;
    QStringList m_changes;
    bool m_hasOnlyChanges = true;
};
