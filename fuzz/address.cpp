// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is a URL or a path of another program.

#include "harness.h"

#include "toolkit/address.h"
#include "toolkit/applicationpath.h"

#include <QStringList>

namespace
{
void checkAddress(const Address &address)
{
    require(address.path.isEmpty() != address.error.isEmpty(), "an address has a path or an error");
    if (!address.error.isEmpty()) {
        return;
    }
    const QStringList names = address.path.split(QLatin1Char('/'));
    for (const QString &name : names) {
        require(!name.isEmpty() && name != QLatin1String(".") && name != QLatin1String(".."), "a name is no step");
    }
    for (const QChar character : address.path) {
        require(character.category() != QChar::Other_Control, "a path has no controls");
    }
    const Address again = Address::ofUrl(Address::urlOf(address.path));
    // The URL may be longer than the one that was read.
    require(again.path == address.path || Address::urlOf(address.path).size() > Address::MaxLength,
            "the URL of a path names it");
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    checkAddress(Address::ofUrl(text));
    checkAddress(Address::of(text));
    checkAddress(Address::ofUrl(QStringLiteral("velka-settings:/") + text));
    const QString path = applicationPath(text);
    require(path.isEmpty() || path.startsWith(QLatin1Char('/')), "the path of an application is absolute");
    return 0;
}
