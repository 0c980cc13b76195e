// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

class QTranslator;

/// Compiled catalogs (.qm) piece by piece, sound and damaged ones.
namespace CatalogBytes
{
constexpr quint32 NullText = 0xffffffff; ///< the length of a text that is null
constexpr quint32 HashOfA = 'a';
constexpr quint32 HashOfB = 'b';

QByteArray magic();
QByteArray number16(quint16 number);
QByteArray number32(quint32 number);
QByteArray utf16(const QByteArray &latin1);

/// A section, or a part of a message: they look the same.
QByteArray part(int tag, quint32 length, const QByteArray &content);
QByteArray part(int tag, const QByteArray &content);

QByteArray contexts(const QByteArray &content);
QByteArray hashes(const QByteArray &content);
QByteArray messages(const QByteArray &content);
QByteArray numerusRules(const QByteArray &content);
QByteArray dependencySection(const QByteArray &content);

/// Two numbers of the section of hashes
QByteArray entry(quint32 hash, quint32 offset);
QByteArray translation(const char *latin1);
QByteArray source(const char *latin1);
QByteArray end(); ///< of a message

QByteArray message(); ///< "A" as the translation of "a"
/// A catalog with one text, that of "a", which is @p message.
QByteArray withMessage(const QByteArray &message);
QByteArray sound();
QByteArray withDependencies(const QList<QByteArray> &names);
}

/// What @p translator returns for the same look-ups, many of them for texts that no catalog has.
QStringList lookUp(const QTranslator &translator);
bool findsNothing(const QTranslator &translator);
