// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

class LoadRecord;
class TreeItem;

/// Where the title of @p item comes from, and what was asked in vain before.
QStringList titleOrigin(const TreeItem &item, const LoadRecord &record);
QStringList shortTitleOrigin(const TreeItem &item, const LoadRecord &record);
