// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

/// The parts of a catalog (*.ts). Its messages with ids are in contexts without names. Other contexts, and other messages
/// with a place that is not in a registration file, are those of a program that shares the catalog: lupdate does not find
/// their texts in registration files.
namespace CatalogParts
{
/// Returns what lupdate merges of @p ts, in which @p ids are those of registration files.
QByteArray merged(const QByteArray &ts, const QSet<QString> &ids);
/// Returns @p updated by lupdate, with the comments and the other parts of @p ts, which may be empty.
QByteArray withOthers(QByteArray updated, QByteArray ts, const QSet<QString> &ids);
}
