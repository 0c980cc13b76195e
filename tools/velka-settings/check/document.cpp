// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"

#include "doubledkeys.h"
#include "registry/jsonvariant.h"
#include "registry/registrationfile.h"

#include <json/reader.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <memory>

namespace Check
{
namespace
{
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int DeepestNesting = 1024;

Tag tagOf(QJsonParseError::ParseError error)
{
    switch (error) {
    case QJsonParseError::DeepNesting:
        return Tag::Nesting;
    case QJsonParseError::IllegalUTF8String:
        return Tag::NotUtf8;
    default:
        return Tag::JsonSyntax;
    }
}

bool readWithOffsets(const QByteArray &text, bool rejectDoubledKeys, Json::Value *root, std::string *errors)
{
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["rejectDupKeys"] = rejectDoubledKeys;
    builder["stackLimit"] = DeepestNesting + 1;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    return reader->parse(text.constData(), text.constData() + text.size(), root, errors);
}

/// The first place that @p errors of the reader name, "* Line 3, Column 8", as an offset.
int offsetOfError(const QByteArray &text, const std::string &errors)
{
    int line = 1;
    int column = 1;
    if (std::sscanf(errors.c_str(), "* Line %d, Column %d", &line, &column) != 2) { // NOLINT(cert-err34-c)
        return 0;
    }
    int start = 0;
    for (; line > 1; --line) {
        start = text.indexOf('\n', start) + 1;
    }
    return std::min(start + column - 1, text.size());
}

QString messageOf(const std::string &errors)
{
    return toText(errors).section(QLatin1Char('\n'), 1, 1).trimmed();
}

const Json::Value *objectOrNull(const Json::Value *value)
{
    return value && value->isObject() ? value : nullptr;
}

void collectEntries(Document *document)
{
    const Json::Value *entries = document->root.isObject() ? member(document->root, "entries") : nullptr;
    if (!entries || !entries->isArray()) {
        return;
    }
    const QJsonArray read = document->read.toObject().value(QLatin1String("entries")).toArray();
    document->entries.reserve(size_t(read.size()));
    for (Json::ArrayIndex i = 0; i < entries->size(); ++i) {
        if ((*entries)[i].isObject()) {
            document->entries.emplace_back((*entries)[i], read.at(int(i)).toObject());
        }
    }
}
}

Entry::Entry(const Json::Value &written, const QJsonObject &read)
    : written(&written)
    , writtenPath(member(written, "path"))
    , writtenParams(objectOrNull(member(written, "params")))
    , read(read)
    , params(read.value(QLatin1String("params")).toObject())
    , path(readString(read, QLatin1String("path")))
    , names(splitPath(path))
    , type(readString(read, QLatin1String("type")))
{
}

Findings::Findings(const QByteArray &text)
    : m_text(text)
{
}

void Findings::atOffset(Tag tag, int offset, const QString &text)
{
    m_findings.append({tag, offset, text, {}});
    m_offsets.insert(offset);
}

void Findings::atValue(Tag tag, const Json::Value &value, const QString &text)
{
    atOffset(tag, int(value.getOffsetStart()), text);
}

void Findings::atKey(Tag tag, const Json::Value &value, const QString &text)
{
    const int colon = m_text.lastIndexOf(':', int(value.getOffsetStart()));
    int quote = m_text.lastIndexOf('"', m_text.lastIndexOf('"', colon) - 1);
    const auto isEscaped = [this](int i) {
        int backslashes = 0;
        while (i - backslashes > 0 && m_text.at(i - backslashes - 1) == '\\') {
            ++backslashes;
        }
        return backslashes % 2 == 1;
    };
    while (isEscaped(quote)) {
        quote = m_text.lastIndexOf('"', quote - 1);
    }
    atOffset(tag, quote, text);
}

bool Findings::isEmpty() const
{
    return m_findings.isEmpty();
}

bool Findings::hasAt(const Json::Value &value) const
{
    return m_offsets.contains(int(value.getOffsetStart()));
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
    QByteArray &text = document->text;
    if (text.trimmed().isEmpty()) {
        findings->atOffset(Tag::EmptyFile, 0, QStringLiteral("the file is empty"));
        return false;
    }
    if (text.startsWith(ByteOrderMark)) {
        findings->atOffset(Tag::ByteOrderMark, 0, QStringLiteral("the file begins with a byte order mark"));
        text.remove(0, int(qstrlen(ByteOrderMark)));
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(text, &error);
    if (json.isNull()) {
        findings->atOffset(tagOf(error.error), offsetOfError(text, error), error.errorString());
        return false;
    }
    document->read = json.isObject() ? QJsonValue(json.object()) : QJsonValue(json.array());
    std::string errors;
    if (!readWithOffsets(text, true, &document->root, &errors)) {
        if (!readWithOffsets(text, false, &document->root, &errors)) {
            findings->atOffset(Tag::NotPortable, offsetOfError(text, errors), messageOf(errors));
            return false;
        }
        reportDoubledKeys(text, findings);
    }
    collectEntries(document);
    return true;
}

const Json::Value *member(const Json::Value &object, const char *key)
{
    return object.find(key, key + qstrlen(key));
}

QString toText(const std::string &text)
{
    return QString::fromUtf8(text.data(), int(text.size()));
}

QString readString(const QJsonObject &object, QLatin1String key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? value.toString() : jsonToVariant(value).toString();
}
}
