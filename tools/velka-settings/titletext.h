// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

class LoadRecord;
class TreeItem;

/// Returns the source of the title of @p item, and the sources that have no title.
QStringList titleOrigin(const TreeItem &item, const LoadRecord &record);
QStringList shortTitleOrigin(const TreeItem &item, const LoadRecord &record);
