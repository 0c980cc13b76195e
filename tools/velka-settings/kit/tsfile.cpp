// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tsfile.h"

#include "localename.h"

#include "printable.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace
{
bool isVanished(const QStringRef &type)
{
    return type == QLatin1String("vanished") || type == QLatin1String("obsolete");
}

/// Returns whether the message with @p attributes has a form for each number.
bool isPlural(const QXmlStreamAttributes &attributes)
{
    return attributes.value(QLatin1String("numerus")) == QLatin1String("yes");
}

QString problemOf(const QXmlStreamReader &reader)
{
    return reader.hasError() ? QString::number(reader.lineNumber()) + QStringLiteral(": ") + reader.errorString()
                             : QString();
}

/// Returns the character that an element "byte" stands for: lupdate writes control characters so.
QChar characterOf(const QXmlStreamAttributes &attributes)
{
    const QStringRef value = attributes.value(QLatin1String("value"));
    const bool isHexadecimal = value.startsWith(QLatin1Char('x'));
    return isHexadecimal ? value.mid(1).toUInt(nullptr, 16) : value.toUInt();
}

/// Returns the text of the current element, with a line for each form of a plural.
QString readText(QXmlStreamReader *reader)
{
    QString text;
    int depth = 1;
    while (depth > 0 && !reader->atEnd()) {
        reader->readNext();
        depth += int(reader->isStartElement()) - int(reader->isEndElement());
        if (reader->isCharacters()) {
            text += reader->text();
        } else if (reader->isStartElement()) {
            text += reader->name() == QLatin1String("byte") ? characterOf(reader->attributes())
                                                            : QChar(QLatin1Char('\n'));
        }
    }
    return text;
}

void writeText(QXmlStreamWriter *writer, const QString &name, const QString &text)
{
    writer->writeStartElement(name);
    for (const QChar character : text) {
        if (character >= QLatin1Char(' ') || character == QLatin1Char('\n') || character == QLatin1Char('\t')) {
            writer->writeCharacters(character);
        } else {
            writer->writeEmptyElement(QStringLiteral("byte"));
            writer->writeAttribute(QStringLiteral("value"),
                                   QLatin1Char('x') + QString::number(character.unicode(), 16));
        }
    }
    writer->writeEndElement();
}

/// Returns how many forms plurals have in @p language: as in Arabic in the mirrored pseudo-locale, else as in English.
int pluralForms(const QString &language)
{
    return language == QLatin1String("ar_XB") ? 6 : 2;
}

/// A message as it is written.
struct WrittenMessage {
    QString context;
    QString id;
    QString source;
    QString comment;
    QString translation;
    QString type; ///< of the translation
    bool isPlural = false;

    bool hasVanished() const
    {
        return isVanished(QStringRef(&type));
    }

    /// Returns the translation and what it is one of.
    QStringList translated() const
    {
        const QStringList key = id.isEmpty() ? QStringList{context, source, comment} : QStringList(id);
        return key + QStringList(translation.simplified());
    }
};

/// Reads the messages of a catalog.
class MessageReader
{
public:
    explicit MessageReader(const QByteArray &ts)
        : m_reader(ts)
    {
    }

    QVector<WrittenMessage> read()
    {
        while (!m_reader.atEnd()) {
            m_reader.readNext();
            if (m_reader.isStartElement()) {
                readElement(m_reader.name().toString());
            } else if (m_reader.isEndElement() && m_reader.name() == QLatin1String("message")) {
                m_messages.append(m_message);
            }
        }
        return m_messages;
    }

    QString problem() const
    {
        return problemOf(m_reader);
    }

private:
    void readElement(const QString &name)
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (name == QLatin1String("name")) {
            m_message.context = readText(&m_reader);
        } else if (name == QLatin1String("message")) {
            m_message = {m_message.context,   attributes.value(QLatin1String("id")).toString(), {}, {}, {}, {},
                         isPlural(attributes)};
        } else if (name == QLatin1String("source")) {
            m_message.source = readText(&m_reader);
        } else if (name == QLatin1String("comment")) {
            m_message.comment = readText(&m_reader);
        } else if (name == QLatin1String("translation")) {
            m_message.type = attributes.value(QLatin1String("type")).toString();
            m_message.translation = readText(&m_reader);
        }
    }

    QXmlStreamReader m_reader;
    QVector<WrittenMessage> m_messages;
    WrittenMessage m_message;
};

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

    /// Returns nothing, and sets @p problem, when the catalog is broken.
    std::optional<QByteArray> translated(QString *problem)
    {
        while (!m_reader.atEnd() && m_reader.readNext() != QXmlStreamReader::Invalid) {
            copyToken();
        }
        *problem = problemOf(m_reader);
        return problem->isEmpty() ? std::make_optional(m_translated) : std::nullopt;
    }

private:
    void copyToken()
    {
        const QStringRef name = m_reader.name();
        const bool begins = m_reader.isStartElement();
        if (begins && name == QLatin1String("message")) {
            m_isPlural = isPlural(m_reader.attributes());
        }
        if (begins && name == QLatin1String("TS")) {
            m_writer.writeStartElement(QStringLiteral("TS"));
            m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
            m_writer.writeAttribute(QStringLiteral("language"), m_language);
            m_writer.writeAttribute(QStringLiteral("sourcelanguage"), QStringLiteral("en"));
        } else if (begins && name == QLatin1String("source")) {
            m_source = readText(&m_reader);
            writeText(&m_writer, QStringLiteral("source"), m_source);
        } else if (begins && name == QLatin1String("translation")
                   && !isVanished(m_reader.attributes().value(QLatin1String("type")))) {
            m_reader.skipCurrentElement();
            writeTranslation();
        } else {
            m_writer.writeCurrentToken(m_reader);
        }
    }

    void writeTranslation()
    {
        const QString translation = m_translate(m_source);
        if (!m_isPlural) {
            writeText(&m_writer, QStringLiteral("translation"), translation);
            return;
        }
        m_writer.writeStartElement(QStringLiteral("translation"));
        for (int form = 0; form < pluralForms(m_language); ++form) {
            writeText(&m_writer, QStringLiteral("numerusform"), translation);
        }
        m_writer.writeEndElement();
    }

    QXmlStreamReader m_reader;
    QByteArray m_translated;
    QXmlStreamWriter m_writer;
    const QString m_language;
    const TsFile::Translate m_translate;
    QString m_source;
    bool m_isPlural = false;
};
}

std::optional<TsFile::Messages> TsFile::messagesOf(const QByteArray &ts, QString *problem)
{
    Messages messages;
    MessageReader reader(ts);
    const QVector<WrittenMessage> written = ts.isEmpty() ? QVector<WrittenMessage>() : reader.read();
    for (const WrittenMessage &message : written) {
        if (!message.id.isEmpty() && !message.hasVanished()) {
            const bool isFinished = message.type.isEmpty() && !message.translation.trimmed().isEmpty();
            messages.insert(message.id, {message.source, isFinished, message.isPlural});
        }
    }
    *problem = reader.problem();
    return problem->isEmpty() ? std::make_optional(messages) : std::nullopt;
}

QString TsFile::lostTranslation(const QByteArray &old, const QByteArray &current)
{
    QSet<QStringList> kept;
    MessageReader reader(current);
    const QVector<WrittenMessage> messages = reader.read();
    for (const WrittenMessage &message : messages) {
        kept.insert(message.translated());
    }
    const QVector<WrittenMessage> earlier = MessageReader(old).read();
    for (const WrittenMessage &message : earlier) {
        if (!message.translation.trimmed().isEmpty() && !kept.contains(message.translated())) {
            return QStringLiteral("lupdate loses a translation of \"%1\"").arg(printable(message.source));
        }
    }
    return reader.problem();
}

bool TsFile::isUtf8(const QByteArray &ts)
{
    QXmlStreamReader reader(ts);
    reader.readNext();
    const QStringRef encoding = reader.documentEncoding();
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(ts.constData(), ts.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0
           && (encoding.isEmpty() || encoding.compare(QLatin1String("utf-8"), Qt::CaseInsensitive) == 0);
}

std::optional<QByteArray> TsFile::translated(const QByteArray &ts, const QString &language,
                                             const Translate &translate, QString *problem)
{
    return Translator(ts, language, translate).translated(problem);
}

QString TsFile::languageOf(const QString &path)
{
    static const QRegularExpression form(
        QStringLiteral("(?:^|[-_])([a-z]{2,3}(?:[-_][A-Z][a-z]{3})?(?:[-_](?:[A-Z]{2}|[0-9]{3}))?)$"));
    const QRegularExpressionMatch match = form.match(QFileInfo(path).completeBaseName());
    const QString language = match.captured(1).replace(QLatin1Char('-'), QLatin1Char('_'));
    return isLocale(language) ? language : QString();
}
