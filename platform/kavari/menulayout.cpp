// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "menulayout.h"

#include <QXmlStreamReader>

#include <tuple>

namespace
{
// Allows recursion over the folders.
constexpr int MaxFolderDepth = 16;

class MenuReader
{
public:
    explicit MenuReader(const QByteArray &xml);

    MenuLayout read();
    QString error() const;

private:
    void startElement();
    void startMenu();
    QString readText();
    MenuLayout::Place nextPlace();

    QXmlStreamReader m_xml;
    MenuLayout m_layout;
    QVector<int> m_open; ///< the folders that contain the current place
    int m_rank = 0;
};

MenuReader::MenuReader(const QByteArray &xml)
    : m_xml(xml)
{
}

MenuLayout MenuReader::read()
{
    while (!m_xml.atEnd()) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::DTD:
            if (m_xml.text().contains(QLatin1Char('['))) {
                m_xml.raiseError(QStringLiteral("declarations are not allowed"));
            }
            break;
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            m_open.removeLast();
            break;
        default:
            break;
        }
    }
    return m_layout;
}

QString MenuReader::error() const
{
    return m_xml.hasError() ? QStringLiteral("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString())
                            : QString();
}

// Reads any element but a menu to its end.
void MenuReader::startElement()
{
    if (m_xml.name() == QLatin1String("Menu")) {
        startMenu();
    } else if (m_open.isEmpty()) {
        m_xml.raiseError(QStringLiteral("not a menu"));
    } else if (m_xml.name() == QLatin1String("Filename")) {
        const QString id = readText();
        if (!m_layout.applications.contains(id)) {
            m_layout.applications.insert(id, nextPlace());
        }
    } else if (m_xml.name() == QLatin1String("Name") && m_open.last() != MenuLayout::Root) {
        m_layout.folders[m_open.last()].title = readText();
    } else {
        m_xml.skipCurrentElement();
    }
}

void MenuReader::startMenu()
{
    if (m_open.size() > MaxFolderDepth) {
        m_xml.skipCurrentElement();
        return;
    }
    int folder = MenuLayout::Root;
    if (!m_open.isEmpty()) {
        folder = m_layout.folders.size();
        m_layout.folders.append({{}, nextPlace()});
    }
    m_open.append(folder);
}

QString MenuReader::readText()
{
    return m_xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
}

MenuLayout::Place MenuReader::nextPlace()
{
    return {m_open.last(), m_rank++};
}
}

bool operator==(const MenuLayout::Place &a, const MenuLayout::Place &b)
{
    return std::tie(a.folder, a.rank) == std::tie(b.folder, b.rank);
}

bool operator==(const MenuLayout::Folder &a, const MenuLayout::Folder &b)
{
    return a.title == b.title && a.place == b.place;
}

bool operator==(const MenuLayout &a, const MenuLayout &b)
{
    return a.folders == b.folders && a.applications == b.applications;
}

MenuLayout parseMenu(const QByteArray &xml, QString *error)
{
    MenuReader reader(xml);
    MenuLayout layout = reader.read();
    *error = reader.error();
    return layout;
}
