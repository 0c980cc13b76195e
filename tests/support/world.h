// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class PluginRegistry;
class TreeItem;

/// Functions that change the files and keys that the library reads, in the sandbox. Outside it they end the test.
namespace World
{
/// True with AddressSanitizer, which makes the size of the process meaningless.
#ifdef VELKA_SANITIZE
constexpr bool KeepsFreedMemory = true;
#else
constexpr bool KeepsFreedMemory = false;
#endif

void writeFile(const QString &path, const QByteArray &content);
/// Writes a registration file into the entries directory.
void writeEntries(const QString &fileName, const QByteArray &json);
void removeEntries(const QString &fileName);
void writeBlacklist(const QByteArray &json);
/// Empties the entries directory, the catalogs, the blacklist and the masked-settings key.
void reset();

/// Lets @p registry scan its directory now, without the delay.
void rescan(PluginRegistry *registry);
void setMasked(const QStringList &paths);

/// Returns the sorted paths of all nodes below @p root, each with its names joined by "/".
QStringList paths(TreeItem *root);
/// Returns the paths of nodes below @p root whose links to parents and children or whose names are wrong.
QStringList brokenInvariants(TreeItem *root);
}

/// Returns a registration file with an entry, titled @p title, at each of @p paths.
QByteArray declaring(const QByteArray &title, const QList<QByteArray> &paths);
/// Returns the paths of all nodes of @p registry, like World::paths().
QStringList paths(const PluginRegistry &registry);
