// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QVariant>

class QJsonObject;
class QJsonValue;

/// Like QJsonValue::toVariant(), but every number is a double, whole ones too.
QVariant jsonToVariant(const QJsonValue &value);
QVariantMap jsonToVariantMap(const QJsonObject &object);
