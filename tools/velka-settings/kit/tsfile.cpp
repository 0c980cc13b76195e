// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tsfile.h"

#include "localename.h"

#include <QFileInfo>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace
{
bool hasVanished(const QXmlStreamAttributes &attributes)
{
    const QStringRef type = attributes.value(QLatin1String("type"));
    return type == QLatin1String("vanished") || type == QLatin1String("obsolete");
}

/// Copies a catalog with other translations.
class Translator
{
public:
    Translator(const QByteArray &ts, const QString &language, const TsFile::Translate &translate)
        : m_reader(ts)
        , m_writer(&m_translated)
        , m_language(language)
        , m_translate(translate)
    {
    }

    QByteArray translated()
    {
        while (!m_reader.atEnd() && m_reader.readNext() != QXmlStreamReader::Invalid) {
            copyToken();
        }
        return m_translated;
    }

private:
    void copyToken()
    {
        const QStringRef name = m_reader.name();
        const bool begins = m_reader.isStartElement();
        if (begins && name == QLatin1String("TS")) {
            m_writer.writeStartElement(QStringLiteral("TS"));
            m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
            m_writer.writeAttribute(QStringLiteral("language"), m_language);
            m_writer.writeAttribute(QStringLiteral("sourcelanguage"), QStringLiteral("en"));
        } else if (begins && name == QLatin1String("source")) {
            m_source = m_reader.readElementText();
            m_writer.writeTextElement(QStringLiteral("source"), m_source);
        } else if (begins && name == QLatin1String("translation") && !hasVanished(m_reader.attributes())) {
            m_reader.skipCurrentElement();
            m_writer.writeTextElement(QStringLiteral("translation"), m_translate(m_source));
        } else {
            m_writer.writeCurrentToken(m_reader);
        }
    }

    QXmlStreamReader m_reader;
    QByteArray m_translated;
    QXmlStreamWriter m_writer;
    const QString m_language;
    const TsFile::Translate m_translate;
    QString m_source;
};
}

std::optional<QMap<QString, TsFile::Message>> TsFile::messagesOf(const QByteArray &ts, QString *problem)
{
    QMap<QString, Message> messages;
    QXmlStreamReader reader(ts);
    QString id;
    QString source;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (reader.name() == QLatin1String("message")) {
            id = reader.attributes().value(QLatin1String("id")).toString();
        } else if (reader.name() == QLatin1String("source")) {
            source = reader.readElementText();
        } else if (reader.name() == QLatin1String("translation") && !hasVanished(reader.attributes())) {
            const bool isMarked = reader.attributes().hasAttribute(QLatin1String("type"));
            const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            messages.insert(id, {source, !isMarked && !text.trimmed().isEmpty()});
        }
    }
    if (reader.hasError()) {
        *problem = QString::number(reader.lineNumber()) + QStringLiteral(": ") + reader.errorString();
        return {};
    }
    return messages;
}

QByteArray TsFile::translated(const QByteArray &ts, const QString &language, const Translate &translate)
{
    return Translator(ts, language, translate).translated();
}

QString TsFile::languageOf(const QString &path)
{
    const QString name = QFileInfo(path).completeBaseName();
    const QString language = name.mid(name.lastIndexOf(QLatin1Char('-')) + 1);
    return isLocale(language) ? language : QStringLiteral("en");
}
