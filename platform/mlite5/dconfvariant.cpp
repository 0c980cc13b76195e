// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dconfvariant.h"

namespace
{
// GLib silently drops what is nested more than 128 levels deep. For GLib a map in a map is three levels, and the
// database adds a few around the value.
constexpr int MaxDepth = 40;

GVariantPointer own(GVariant *floating)
{
    return GVariantPointer(g_variant_ref_sink(floating));
}

GVariantPointer toGVariant(const QVariant &value, int depth);

GVariantPointer fromString(const QString &text)
{
    return isStorable(text) ? own(g_variant_new_string(text.toUtf8().constData())) : nullptr;
}

GVariantPointer fromStringList(const QStringList &list)
{
    g_auto(GVariantBuilder) builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_STRING_ARRAY);
    for (const QString &text : list) {
        const GVariantPointer child = fromString(text);
        if (!child) {
            return nullptr;
        }
        g_variant_builder_add_value(&builder, child.get());
    }
    return own(g_variant_builder_end(&builder));
}

GVariantPointer fromList(const QVariantList &list, int depth)
{
    g_auto(GVariantBuilder) builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("av"));
    for (const QVariant &value : list) {
        const GVariantPointer child = toGVariant(value, depth + 1);
        if (!child) {
            return nullptr;
        }
        g_variant_builder_add(&builder, "v", child.get());
    }
    return own(g_variant_builder_end(&builder));
}

GVariantPointer fromMap(const QVariantMap &map, int depth)
{
    g_auto(GVariantBuilder) builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_VARDICT);
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        const GVariantPointer child = toGVariant(it.value(), depth + 1);
        if (!child || !isStorable(it.key())) {
            return nullptr;
        }
        g_variant_builder_add(&builder, "{sv}", it.key().toUtf8().constData(), child.get());
    }
    return own(g_variant_builder_end(&builder));
}

GVariantPointer toGVariant(const QVariant &value, int depth)
{
    if (depth > MaxDepth) {
        return nullptr;
    }
    switch (value.userType()) {
    case QMetaType::Bool:
        return own(g_variant_new_boolean(value.toBool()));
    case QMetaType::UChar:
        return own(g_variant_new_byte(value.value<uchar>()));
    case QMetaType::Short:
        return own(g_variant_new_int16(value.value<short>()));
    case QMetaType::UShort:
        return own(g_variant_new_uint16(value.value<ushort>()));
    case QMetaType::Int:
        return own(g_variant_new_int32(value.toInt()));
    case QMetaType::UInt:
        return own(g_variant_new_uint32(value.toUInt()));
    case QMetaType::Long:
    case QMetaType::LongLong:
        return own(g_variant_new_int64(value.toLongLong()));
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return own(g_variant_new_uint64(value.toULongLong()));
    case QMetaType::Float:
    case QMetaType::Double:
        return own(g_variant_new_double(value.toDouble()));
    case QMetaType::QString:
        return fromString(value.toString());
    case QMetaType::QStringList:
        return fromStringList(value.toStringList());
    case QMetaType::QVariantList:
        return fromList(value.toList(), depth);
    case QMetaType::QVariantMap:
        return fromMap(value.toMap(), depth);
    default:
        return nullptr;
    }
}

GVariantPointer child(GVariant *container, gsize index)
{
    return GVariantPointer(g_variant_get_child_value(container, index));
}

QString toString(GVariant *value)
{
    gsize length = 0;
    const char *text = g_variant_get_string(value, &length);
    const QString result = QString::fromUtf8(text, int(length));
    // QString::fromUtf8() removes a byte order mark at the start.
    return qstrncmp(text, "\xEF\xBB\xBF", 3) == 0 ? QChar(QChar::ByteOrderMark) + result : result;
}

QStringList toStringList(GVariant *value)
{
    QStringList list;
    const gsize size = g_variant_n_children(value);
    for (gsize i = 0; i < size; ++i) {
        list.append(toString(child(value, i).get()));
    }
    return list;
}

QVariantList toList(GVariant *value)
{
    QVariantList list;
    const gsize size = g_variant_n_children(value);
    for (gsize i = 0; i < size; ++i) {
        list.append(fromGVariant(child(value, i).get()));
    }
    return list;
}

QString toKey(GVariant *value)
{
    switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_BYTE: // QVariant would convert it to a character, possibly the null character
        return QString::number(g_variant_get_byte(value));
    case G_VARIANT_CLASS_HANDLE: // fromGVariant() returns nothing for any of them
        return QString::number(g_variant_get_handle(value));
    default:
        return fromGVariant(value).toString();
    }
}

QVariantMap toMap(GVariant *value)
{
    QVariantMap map;
    const gsize size = g_variant_n_children(value);
    for (gsize i = 0; i < size; ++i) {
        const GVariantPointer entry = child(value, i);
        map.insert(toKey(child(entry.get(), 0).get()), fromGVariant(child(entry.get(), 1).get()));
    }
    return map;
}

QVariant toArray(GVariant *value)
{
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) {
        return toStringList(value);
    }
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_DICTIONARY)) {
        return toMap(value);
    }
    return toList(value);
}
}

bool isStorable(const QString &text)
{
    return text.isValidUtf16() && !text.contains(QChar(QChar::Null));
}

GVariantPointer toGVariant(const QVariant &value)
{
    return toGVariant(value, 0);
}

// No limit on the depth here: GLib has its own, whatever bytes the database holds.
QVariant fromGVariant(GVariant *value)
{
    if (!value) {
        return {};
    }
    switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_BOOLEAN:
        return bool(g_variant_get_boolean(value));
    case G_VARIANT_CLASS_BYTE:
        return QVariant::fromValue<uchar>(g_variant_get_byte(value));
    case G_VARIANT_CLASS_INT16:
        return QVariant::fromValue<short>(g_variant_get_int16(value));
    case G_VARIANT_CLASS_UINT16:
        return QVariant::fromValue<ushort>(g_variant_get_uint16(value));
    case G_VARIANT_CLASS_INT32:
        return g_variant_get_int32(value);
    case G_VARIANT_CLASS_UINT32:
        return g_variant_get_uint32(value);
    case G_VARIANT_CLASS_INT64:
        return qlonglong(g_variant_get_int64(value));
    case G_VARIANT_CLASS_UINT64:
        return qulonglong(g_variant_get_uint64(value));
    case G_VARIANT_CLASS_DOUBLE:
        return g_variant_get_double(value);
    case G_VARIANT_CLASS_STRING:
    case G_VARIANT_CLASS_OBJECT_PATH:
    case G_VARIANT_CLASS_SIGNATURE:
        return toString(value);
    case G_VARIANT_CLASS_VARIANT:
        return fromGVariant(child(value, 0).get());
    case G_VARIANT_CLASS_MAYBE:
        return g_variant_n_children(value) == 0 ? QVariant() : fromGVariant(child(value, 0).get());
    case G_VARIANT_CLASS_ARRAY:
        return toArray(value);
    case G_VARIANT_CLASS_TUPLE:
    case G_VARIANT_CLASS_DICT_ENTRY:
        return toList(value);
    case G_VARIANT_CLASS_HANDLE:
        break;
    }
    return {};
}
