// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a stored value: the length of its type, its type, and its bytes.

#include "harness.h"
#include "input.h"

#include "dconfvariant.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace
{
using GBytesPointer = std::unique_ptr<GBytes, decltype(&g_bytes_unref)>;

/// Returns null if the input does not begin with a type.
GVariantPointer readValue(Input *input)
{
    const QByteArray type = input->take(input->byte());
    if (type.contains('\0') || !g_variant_type_string_is_valid(type.constData())
        || !g_variant_type_is_definite(G_VARIANT_TYPE(type.constData()))) {
        return nullptr;
    }
    const QByteArray content = input->rest();
    // The copy is aligned.
    const GBytesPointer bytes(g_bytes_new(content.constData(), gsize(content.size())), g_bytes_unref);
    GVariant *value = g_variant_new_from_bytes(G_VARIANT_TYPE(type.constData()), bytes.get(), FALSE);
    return GVariantPointer(g_variant_ref_sink(value));
}

/// Returns the same bytes for equal values of equal types, including not-a-number.
QByteArray bytesOf(const QVariant &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

int depthOf(const QVariant &value)
{
    int depth = 0;
    const QVariantList elements = value.userType() == QMetaType::QVariantMap ? QVariantList(value.toMap().values())
                                  : value.userType() == QMetaType::QVariantList ? value.toList()
                                                                                : QVariantList();
    for (const QVariant &element : elements) {
        depth = qMax(depth, 1 + depthOf(element));
    }
    return depth;
}

bool holdsNothing(const QVariant &value)
{
    const QVariantList elements = value.userType() == QMetaType::QVariantMap ? QVariantList(value.toMap().values())
                                  : value.userType() == QMetaType::QVariantList ? value.toList()
                                                                                : QVariantList();
    return !value.isValid() || std::any_of(elements.cbegin(), elements.cend(), holdsNothing);
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const GVariantPointer value = readValue(&input);
    const QVariant read = fromGVariant(value.get());
    const GVariantPointer stored = toGVariant(read);
    if (!stored) {
        constexpr int DepthOfAllThatFits = 40;
        require(holdsNothing(read) || depthOf(read) > DepthOfAllThatFits, "what was read can be stored");
        return 0;
    }
    require(bytesOf(fromGVariant(stored.get())) == bytesOf(read), "what was stored is read again");
    return 0;
}
