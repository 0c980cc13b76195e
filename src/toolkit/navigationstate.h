// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>

#include <optional>

/// The open pages as they are saved.
struct NavigationState {
    QStringList pages;
    QString row;

    /// Returns a text that parse() reads, empty if nothing is open.
    QString toText() const;
    /// Returns nothing if @p text is not what toText() returns for at most @p maxPages pages.
    static std::optional<NavigationState> parse(const QString &text, int maxPages);
};
