// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "bustexts.h"

#include "treeitem.h"

namespace
{
constexpr int MaxLettersOfLocation = 4096;
constexpr int MaxLettersShown = 500;
}

bool BusTexts::isIdentifier(const QString &location)
{
    return !location.isEmpty() && location.size() <= MaxLettersOfLocation && !location.contains(QChar::Null)
           && location.isValidUtf16();
}

QString BusTexts::shortened(const QString &text)
{
    return text.left(MaxLettersShown);
}

QString BusTexts::themeIconOf(const TreeItem &item)
{
    const QString icon = item.icon();
    return icon.contains(QLatin1Char('/')) || icon.size() > MaxLettersShown ? QString() : icon;
}
