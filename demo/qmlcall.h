// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QMetaObject>
#include <QVariant>

/// Calls a QML function of @p object and returns its result.
template<typename... Arguments>
QVariant callQml(QObject *object, const char *function, const Arguments &...arguments)
{
    QVariant result;
    QMetaObject::invokeMethod(object, function, Q_RETURN_ARG(QVariant, result),
                              Q_ARG(QVariant, QVariant(arguments))...);
    return result;
}
