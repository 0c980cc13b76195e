// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>

/// The parts of a catalog (*.ts). Its messages with ids are in contexts without names. Other contexts are those of a
/// program that shares the catalog: lupdate does not find their texts in registration files.
namespace CatalogParts
{
/// Returns what lupdate merges of @p ts.
QByteArray merged(const QByteArray &ts);
/// Returns @p updated by lupdate, with the comments and the other contexts of @p ts, which may be empty.
QByteArray withOthers(QByteArray updated, QByteArray ts);
}
