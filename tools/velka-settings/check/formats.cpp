// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "formats.h"

#include "excerpt.h"
#include "printable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamWriter>

namespace Check
{
namespace
{
const char *colourOf(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return "\x1b[1;31m";
    case Severity::Warning:
        return "\x1b[1;35m";
    default:
        return "\x1b[1;36m";
    }
}

QByteArray coloured(const QByteArray &text, const char *colour, bool inColour)
{
    return inColour ? colour + text + "\x1b[0m" : text;
}

QByteArray placeOf(const FileFindings &file, const Finding &finding)
{
    return printable(file.path).toUtf8() + ':' + QByteArray::number(finding.place.line) + ':'
           + QByteArray::number(finding.place.column) + ':';
}

QByteArray lineOf(const FileFindings &file, const Finding &finding, Severity severity, bool inColour)
{
    return coloured(placeOf(file, finding), "\x1b[1m", inColour) + ' '
           + coloured(QByteArray(severityName(severity)) + ':', colourOf(severity), inColour) + ' '
           + finding.text.toUtf8() + " [" + info(finding.tag).name + "]\n";
}

/// Returns whether a finding with @p tag is about the file, not about a place in it.
bool isAboutFile(Tag tag)
{
    switch (tag) {
    case Tag::ByteOrderMark:
    case Tag::DanglingLink:
    case Tag::EmptyFile:
    case Tag::NameAside:
    case Tag::NameNeverLoaded:
    case Tag::NotUtf8:
    case Tag::Subdirectory:
    case Tag::Unreadable:
        return true;
    default:
        return false;
    }
}

QByteArray placeInText(const FileFindings &file, const Finding &finding, Severity severity, bool inColour)
{
    if (isAboutFile(finding.tag) || file.text.isEmpty()) {
        return {};
    }
    const Excerpt excerpt = excerptAt(file.text, finding.offset);
    return "    " + excerpt.text.toUtf8() + "\n    " + QByteArray(excerpt.caret, ' ')
           + coloured("^", colourOf(severity), inColour) + '\n';
}

QByteArray counted(int number, const char *noun)
{
    return QByteArray::number(number) + ' ' + noun + (number == 1 ? "" : "s");
}

/// Counts findings by their severities.
class Counts
{
public:
    void add(Severity severity)
    {
        ++m_counts[int(severity)];
    }

    QByteArray summaryOf(int files) const
    {
        return counted(files, "file") + ": " + counted(of(Severity::Error), "error") + ", "
               + counted(of(Severity::Warning), "warning") + ", " + counted(of(Severity::Note), "note") + '\n';
    }

private:
    int of(Severity severity) const
    {
        return m_counts[int(severity)];
    }

    int m_counts[int(Severity::Error) + 1] = {};
};

QString name(Severity severity)
{
    return QLatin1String(severityName(severity));
}
}

void Severities::override(Tag tag, Severity severity)
{
    m_overrides.insert(int(tag), severity);
}

Severity Severities::of(Tag tag) const
{
    return m_overrides.value(int(tag), info(tag).severity);
}

QByteArray toText(const Report &report, const Severities &severities, bool inColour)
{
    QByteArray text;
    Counts counts;
    int files = 0;
    for (const FileFindings &file : report) {
        files += file.isFile ? 1 : 0;
        for (const Finding &finding : file.findings) {
            const Severity severity = severities.of(finding.tag);
            counts.add(severity);
            if (severity != Severity::Ignore) {
                text += lineOf(file, finding, severity, inColour) + placeInText(file, finding, severity, inColour);
            }
        }
    }
    return text + counts.summaryOf(files);
}

QByteArray toJson(const Report &report, const Severities &severities)
{
    QJsonArray array;
    for (const FileFindings &file : report) {
        for (const Finding &finding : file.findings) {
            const Severity severity = severities.of(finding.tag);
            if (severity != Severity::Ignore) {
                array.append(QJsonObject{{QStringLiteral("file"), file.path},
                                         {QStringLiteral("line"), finding.place.line},
                                         {QStringLiteral("column"), finding.place.column},
                                         {QStringLiteral("severity"), name(severity)},
                                         {QStringLiteral("tag"), QLatin1String(info(finding.tag).name)},
                                         {QStringLiteral("text"), finding.text}});
            }
        }
    }
    return printableJson(QJsonDocument(array).toJson());
}

QByteArray toJUnit(const Report &report, const Severities &severities, bool strict)
{
    const Severity failing = strict ? Severity::Warning : Severity::Error;
    QByteArray output;
    QXmlStreamWriter xml(&output);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("testsuite"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("velka-settings check"));
    xml.writeAttribute(QStringLiteral("tests"), QString::number(report.size()));
    for (const FileFindings &file : report) {
        xml.writeStartElement(QStringLiteral("testcase"));
        xml.writeAttribute(QStringLiteral("classname"), QStringLiteral("check"));
        xml.writeAttribute(QStringLiteral("name"), printable(file.path));
        QByteArray others;
        for (const Finding &finding : file.findings) {
            const Severity severity = severities.of(finding.tag);
            if (severity >= failing) {
                xml.writeStartElement(QStringLiteral("failure"));
                xml.writeAttribute(QStringLiteral("type"), QLatin1String(info(finding.tag).name));
                xml.writeAttribute(QStringLiteral("message"), finding.text);
                xml.writeCharacters(QString::fromUtf8(lineOf(file, finding, severity, false)));
                xml.writeEndElement();
            } else if (severity != Severity::Ignore) {
                others += lineOf(file, finding, severity, false);
            }
        }
        if (!others.isEmpty()) {
            xml.writeTextElement(QStringLiteral("system-out"), QString::fromUtf8(others));
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return output;
}
}
