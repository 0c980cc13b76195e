// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is the launcher's menu file.

#include "harness.h"

#include "menulayout.h"

#include <QMap>
#include <QVector>

namespace
{
QByteArray escaped(const QString &text)
{
    QByteArray xml;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        xml += "&#" + QByteArray::number(character) + ";";
    }
    return xml;
}

QByteArray toXml(const MenuLayout &layout)
{
    QVector<QMap<int, QByteArray>> contents(layout.folders.size()
                                            + 1); // of the root, then of the folders, by rank
    for (auto it = layout.applications.cbegin(); it != layout.applications.cend(); ++it) {
        contents[it->folder + 1].insert(it->rank, "<Filename>" + escaped(it.key()) + "</Filename>");
    }
    for (int i = layout.folders.size() - 1; i >= 0; --i) {
        const MenuLayout::Folder &folder = layout.folders.at(i);
        require(folder.place.folder < i, "a folder comes after the one that contains it");
        contents[folder.place.folder + 1].insert(folder.place.rank,
                                                 "<Menu><Name>" + escaped(folder.title) + "</Name>"
                                                     + contents.at(i + 1).values().join() + "</Menu>");
    }
    return "<Menu>" + contents.first().values().join() + "</Menu>";
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QString error;
    const MenuLayout layout = parseMenu({reinterpret_cast<const char *>(data), int(size)}, &error);
    if (!error.isEmpty()) {
        return 0;
    }
    const QByteArray xml = toXml(layout);
    require(toXml(parseMenu(xml, &error)) == xml && error.isEmpty(), "a layout can be written and read again");
    return 0;
}
