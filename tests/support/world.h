// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class PluginRegistry;
class TreeItem;

/// The files and keys that the library reads, in the sandbox that the test runs in. Ends the test anywhere else.
namespace World
{
/// The sanitizer does so on purpose: the size of the process tells nothing of it.
#ifdef __SANITIZE_ADDRESS__
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

/// The paths of all nodes below @p root, sorted, each node's names joined with "/".
QStringList paths(TreeItem *root);
/// What is wrong with the tree below @p root: links between parents and children, names and keys. Empty if sound.
QStringList brokenInvariants(TreeItem *root);
}

/// A registration file with an entry, titled @p title, at each of @p paths.
QByteArray declaring(const QByteArray &title, const QList<QByteArray> &paths);
/// The paths of all nodes of @p registry, as World::paths() returns them.
QStringList paths(const PluginRegistry &registry);
