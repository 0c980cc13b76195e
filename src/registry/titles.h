// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QString>

class TreeItem;

enum class TitleSource {
    Catalog,
    PlainText,
    NodeName,
    Nothing,
};

struct Title {
    QString text;
    TitleSource source;
};

/// The text of "translation_id", else "title", else "!!" and the name. Translated at each call.
Title titleOf(const TreeItem &item);
/// The text of "translation_id_short", else "title_short", else empty.
Title shortTitleOf(const TreeItem &item);
