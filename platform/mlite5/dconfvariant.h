// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DCONFVARIANT_H
#define DCONFVARIANT_H

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

/// Text that comes back the same from UTF-8 in a C string.
bool isStorable(const QString &text);

/// Null when something in the value is of a type that cannot be stored, is text that is not storable, or stands
/// in too many lists and maps.
GVariantPointer toGVariant(const QVariant &value);

/// Invalid for null and for what QVariant has no counterpart of.
QVariant fromGVariant(GVariant *value);

#endif
