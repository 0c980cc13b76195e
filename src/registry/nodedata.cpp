// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/nodedata.h"

#include "registry/jsonvariant.h"

#include <QJsonArray>
#include <QJsonObject>

namespace
{
const QString s_fromFile = QStringLiteral("from_file");
const QString s_order = QStringLiteral("order");

int toOrder(const QVariant &order, int defaultOrder)
{
    return order.isNull() ? defaultOrder : order.toInt();
}

/// Null only for a null variant: a value that is not text still names a file, an unknown one.
QString toFileName(const QVariant &fromFile)
{
    const QString name = fromFile.toString();
    return name.isNull() && !fromFile.isNull() ? QLatin1String("") : name;
}
}

NodeData::NodeData(const QVariantMap &map)
    : m_map(map)
    , m_order(toOrder(map.value(s_order), DefaultOrder))
    , m_fromFile(toFileName(map.value(s_fromFile)))
{
}

NodeData::NodeData(const Entries &entries, int index, const QString &fromFile)
    : m_entries(entries)
    , m_index(index)
    , m_order(toOrder(jsonToVariant(entries->at(index).value(s_order)), DefaultOrder))
    , m_fromFile(fromFile)
{
}

QVariant NodeData::value(const QString &key) const
{
    if (!m_entries) {
        return m_map.value(key);
    }
    return key == s_fromFile ? m_fromFile : jsonToVariant(m_entries->at(m_index).value(key));
}

QVariantMap NodeData::toMap() const
{
    if (!m_entries) {
        return m_map;
    }
    QVariantMap map = jsonToVariantMap(m_entries->at(m_index));
    map.insert(s_fromFile, m_fromFile);
    return map;
}

QString NodeData::fromFile() const
{
    return m_fromFile;
}

bool NodeData::operator==(const NodeData &other) const
{
    const bool isSameEntry = m_entries && m_entries == other.m_entries && m_index == other.m_index
                             && m_fromFile == other.m_fromFile;
    return isSameEntry || toMap() == other.toMap();
}

NodeData::Entries NodeData::fileEntries() const
{
    return m_entries;
}

int NodeData::entryIndex() const
{
    return m_index;
}

int NodeData::order() const
{
    return m_order;
}

void NodeData::keepEntryAlone()
{
    if (m_entries) {
        m_entries = Entries(new FileEntries({m_entries->at(m_index)}, {}, m_entries->catalogs()));
        m_index = 0;
    }
}
