// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"

#include "jsonmistake.h"
#include "knownkeys.h"
#include "registry/jsonvariant.h"
#include "registry/registrationfile.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace Check
{
namespace
{
Tag tagOf(JsonMistake::Kind kind)
{
    switch (kind) {
    case JsonMistake::Nesting:
        return Tag::Nesting;
    case JsonMistake::Encoding:
        return Tag::NotUtf8;
    case JsonMistake::Syntax:
        break;
    }
    return Tag::JsonSyntax;
}

const Written *objectOrNull(const Written *value)
{
    return value && value->kind == Written::Object ? value : nullptr;
}

void collectEntries(Document *document)
{
    const Written *entries = document->root.member(QLatin1String("entries"));
    if (!entries || entries->kind != Written::Array) {
        return;
    }
    const QJsonArray read = document->read.toObject().value(QLatin1String("entries")).toArray();
    document->entries.reserve(entries->children.size());
    for (int i = 0; i < read.size(); ++i) {
        if (read.at(i).isObject()) {
            document->entries.emplace_back(entries->children.at(std::size_t(i)), read.at(i).toObject(),
                                           document->vocabulary);
        }
    }
}
}

Entry::Entry(const Written &written, const QJsonObject &read, const HostVocabulary *vocabulary)
    : written(&written)
    , writtenPath(written.member(QLatin1String("path")))
    , writtenParams(objectOrNull(written.member(QLatin1String("params"))))
    , read(read)
    , params(read.value(QLatin1String("params")).toObject())
    , path(readString(read, QLatin1String("path")))
    , names(splitPath(path))
    , type(readString(read, QLatin1String("type")))
    , vocabulary(vocabulary)
{
}

Findings::Findings(const QByteArray &text)
    : m_text(text)
{
}

void Findings::atOffset(Tag tag, int offset, const QString &text)
{
    m_findings.append({tag, offset, text, {}});
    if (tag != Tag::NotPortable) { // which is about the spelling, not the value
        m_offsets.insert(offset);
    }
}

void Findings::atValue(Tag tag, const Written &value, const QString &text)
{
    atOffset(tag, value.start, text);
}

void Findings::atKey(Tag tag, const Written &member, const QString &text)
{
    atOffset(tag, member.keyStart, text);
}

void Findings::claim(const Written &member)
{
    m_offsets.insert(member.keyStart);
}

bool Findings::isEmpty() const
{
    return m_findings.isEmpty();
}

bool Findings::hasAt(const Written &value) const
{
    return m_offsets.contains(value.start);
}

bool Findings::hasAtKey(const Written &member) const
{
    return m_offsets.contains(member.keyStart);
}

QByteArray Findings::textOf(const Written &value) const
{
    return m_text.mid(value.start, value.end - value.start);
}

QVector<Finding> Findings::take()
{
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
    PlaceFinder places(m_text);
    for (Finding &finding : m_findings) {
        finding.place = places.at(finding.offset);
    }
    return std::exchange(m_findings, {});
}

bool parse(Document *document, Findings *findings)
{
    const QByteArray &text = document->text;
    if (text.trimmed().isEmpty()) {
        findings->atOffset(Tag::EmptyFile, 0, QStringLiteral("the file is empty"));
        return false;
    }
    if (startOf(text) > 0) {
        findings->atOffset(Tag::ByteOrderMark, 0, QStringLiteral("the file begins with a byte order mark"));
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(text, &error);
    if (json.isNull()) {
        const JsonMistake mistake = jsonMistakeIn(text, error);
        findings->atOffset(tagOf(mistake.kind), mistake.offset, mistake.text);
        return false;
    }
    document->read = json.isObject() ? QJsonValue(json.object()) : QJsonValue(json.array());
    document->root = readWritten(text, findings);
    collectEntries(document);
    return true;
}

const Written *misspeltMember(const Written &object, const QStringList &known, QLatin1String key)
{
    if (object.member(key)) {
        return nullptr;
    }
    const auto found = std::find_if(object.children.cbegin(), object.children.cend(), [&](const Written &member) {
        return !known.contains(member.key) && KnownKeys::meantBy(member.key, object, known) == key;
    });
    return found == object.children.cend() ? nullptr : &*found;
}

QString readString(const QJsonObject &object, QLatin1String key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? value.toString() : jsonToVariant(value).toString();
}
}
