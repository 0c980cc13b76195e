// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "schema.h"

#include "document.h"
#include "registry/jsonvariant.h"
#include "rules.h"

#include <json/reader.h>
#include <valijson/adapters/jsoncpp_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <QFile>

#include <memory>

namespace Check
{
namespace
{
using Context = std::vector<std::string>;

Json::Value readSchema(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no %s", qPrintable(path));
    }
    const QByteArray text = file.readAll();
    Json::Value schema;
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    if (!reader->parse(text.constData(), text.constData() + text.size(), &schema, nullptr)) {
        qFatal("%s is no JSON", qPrintable(path));
    }
    return schema;
}

std::unique_ptr<valijson::Schema> compile(const Json::Value &written)
{
    auto schema = std::make_unique<valijson::Schema>();
    const valijson::adapters::JsonCppAdapter adapter(written);
    valijson::SchemaParser().populateSchema(adapter, *schema);
    return schema;
}

/// The last step of @p context without its brackets.
std::string stepOf(const std::string &part)
{
    return part.substr(1, part.size() - 2);
}

/// The value that @p context leads to from @p root.
const Json::Value &valueAt(const Json::Value &root, const Context &context)
{
    const Json::Value *value = &root;
    for (auto part = std::next(context.cbegin()); part != context.cend(); ++part) {
        const std::string step = stepOf(*part);
        value = value->isArray() ? &(*value)[Json::ArrayIndex(std::stoul(step))] : &(*value)[step];
    }
    return *value;
}

constexpr size_t TopLevelKey = 2;
constexpr size_t Element = 3;
constexpr size_t EntryKey = 4;

/// Whether the library makes nothing of @p value, which is of the wrong type. What "params" lack, other rules tell.
bool isLost(const Context &context, const Json::Value &value)
{
    const std::string key = stepOf(context.back());
    if (context.size() == TopLevelKey) {
        return key != "$schema";
    }
    return context.size() == EntryKey && (key == "params" || value.isObject() || value.isArray());
}

void reportType(const Context &context, const Json::Value &value, Findings *findings)
{
    if (context.size() == 1) {
        findings->atValue(Tag::TopLevel, value,
                          QStringLiteral("the top level of a registration file is an object"));
        return;
    }
    if (context.size() == Element) {
        findings->atValue(Tag::EntryNotObject, value, QStringLiteral("the library skips what is no object"));
    } else if (value.isNull()) {
        findings->atValue(Tag::NullValue, value, QStringLiteral("null counts as if the key was missing"));
    } else if (isLost(context, value)) {
        findings->atValue(Tag::ValueLost, value,
                          QStringLiteral("the library reads this value as if it was empty"));
    } else {
        findings->atValue(Tag::WrongType, value,
                          QStringLiteral("this value is of another type than the format's"));
    }
}

bool isSummary(const std::string &description)
{
    return description.rfind("Failed to validate", 0) == 0;
}

bool isAboutType(const std::string &description)
{
    return description.rfind("Value type not permitted", 0) == 0;
}
}

const Json::Value &registrationSchema()
{
    static const Json::Value schema = readSchema(QStringLiteral(":/schema/registration.schema.json"));
    return schema;
}

void checkRegistrationSchema(const Document &document, Findings *findings)
{
    static const std::unique_ptr<valijson::Schema> schema = compile(registrationSchema());
    valijson::ValidationResults results;
    const valijson::adapters::JsonCppAdapter target(document.root);
    if (valijson::Validator().validate(*schema, target, &results)) {
        return;
    }
    for (const valijson::ValidationResults::Error &error : results) {
        const Json::Value &value = valueAt(document.root, error.context);
        if (isSummary(error.description) || findings->hasAt(value)) {
            continue;
        }
        if (isAboutType(error.description)) {
            reportType(error.context, value, findings);
        } else {
            findings->atValue(Tag::Schema, value, toText(error.description));
        }
    }
}
}
