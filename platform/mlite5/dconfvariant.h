// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QVariant>

#include <glib.h>

#include <memory>

struct GVariantUnref {
    void operator()(GVariant *value) const
    {
        g_variant_unref(value);
    }
};
using GVariantPointer = std::unique_ptr<GVariant, GVariantUnref>;

/// Returns whether @p text is the same after a conversion to a C string in UTF-8 and back.
bool isStorable(const QString &text);

/// Returns null if @p value holds a type that cannot be stored, text that is not storable, or too many levels of lists
/// and maps.
GVariantPointer toGVariant(const QVariant &value);

/// Returns an invalid variant for null and for a type without a counterpart in Qt.
QVariant fromGVariant(GVariant *value);
