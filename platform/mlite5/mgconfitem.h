// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef MGCONFITEM_H
#define MGCONFITEM_H

#include <QObject>
#include <QVariant>

#include <memory>

class MGConfItemPrivate;

/**
 * One dconf key. For the GUI thread only.
 *
 * A value that is set can be read at once through any item of the process, and reaches the database later. When
 * it cannot be stored there, it is taken back, which is a change again.
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

#endif
