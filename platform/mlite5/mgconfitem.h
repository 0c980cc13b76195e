// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QObject>
#include <QVariant>

#include <memory>

class MGConfItemPrivate;

/**
 * One dconf key. To be used in the GUI thread only.
 *
 * After set(), every item of the process returns the new value at once; it is written to the database later. If that
 * fails, the value changes back, with another notification. A value of more than 16 MiB is refused with a warning.
 *
 * Changes by other processes are notified once in each turn of the event loop. While no descriptor or memory is free
 * to open the database, value() returns what was read last, and changes are notified later.
 */
class Q_DECL_EXPORT MGConfItem : public QObject
{
    Q_OBJECT

public:
    explicit MGConfItem(const QString &key, QObject *parent = nullptr);
    ~MGConfItem() override;

    QString key() const;
    QVariant value() const; ///< invalid when the key is not set
    QVariant value(const QVariant &defaultValue) const;
    void set(const QVariant &value); ///< an invalid value resets the key

Q_SIGNALS:
    void valueChanged();

private:
    const std::unique_ptr<MGConfItemPrivate> d;
};
