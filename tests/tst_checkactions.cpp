// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "callnames.h"
#include "checker.h"
#include "tags.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Check;

namespace
{
const char *const s_keys[] = {"remote-service", "remote-path", "remote-interface", "remote-method"};
const char *const s_tags[] = {"dbus-service", "dbus-path", "dbus-interface", "dbus-method"};

/// Returns the tags of a file whose only entry is an action with @p params.
QStringList tagsOf(const QJsonObject &params)
{
    const QJsonObject entry{{QStringLiteral("path"), QStringLiteral("torch")},
                            {QStringLiteral("title"), QStringLiteral("Torch")},
                            {QStringLiteral("type"), QStringLiteral("action")},
                            {QStringLiteral("params"), params}};
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("a.json")));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("Cannot write a file");
    }
    const QJsonObject entries{{QStringLiteral("entries"), QJsonArray{entry}}};
    file.write(QJsonDocument(entries).toJson());
    file.close();
    QStringList tags;
    for (const FileFindings &found : Checker({}, [](int, int) {}).check({file.fileName()})) {
        for (const Finding &finding : found.findings) {
            tags.append(QLatin1String(info(finding.tag).name));
        }
    }
    return tags;
}

bool hasSurrogate(const QString &name)
{
    return std::any_of(name.cbegin(), name.cend(), [](QChar character) { return character.isSurrogate(); });
}

/// Returns the tags of @p name as a @p part of a call.
QStringList expectedTags(const CallNames::Name &name, CallNames::Part part)
{
    if (name.value.isEmpty()) {
        return part == CallNames::Interface ? QStringList() : QStringList(QStringLiteral("action-incomplete"));
    }
    if (hasSurrogate(name.value)) {
        return {QStringLiteral("not-portable"), QString::fromLatin1(s_tags[part])};
    }
    // libdbus, which the command uses, accepts the colon as the name of a service; Qt does not.
    const bool isColon = part == CallNames::Service && name.value == QLatin1Char(':');
    if (isColon || name.outcomes[part] == CallNames::Outcome::Sent) {
        return {};
    }
    return {QString::fromLatin1(s_tags[part])};
}
}

/// The findings of the command "check" about the calls of actions.
class CheckActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
};

void CheckActionsTest::names_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("tags");
    for (const CallNames::Name &name : CallNames::all()) {
        for (int i = 0; i < CallNames::PartCount; ++i) {
            const auto part = CallNames::Part(i);
            QTest::addRow("%s: %s", CallNames::title(part), name.title.constData())
                << QString::fromLatin1(s_keys[part]) << name.value << expectedTags(name, part);
        }
    }
}

void CheckActionsTest::names()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QJsonObject params{{QStringLiteral("remote-service"), QStringLiteral("com.example.torch")},
                       {QStringLiteral("remote-path"), QStringLiteral("/com/example/torch")},
                       {QStringLiteral("remote-interface"), QStringLiteral("com.example.torch")},
                       {QStringLiteral("remote-method"), QStringLiteral("toggle")}};
    params.insert(key, name);
    QTEST(tagsOf(params), "tags");
}

QTEST_GUILESS_MAIN(CheckActionsTest)
#include "tst_checkactions.moc"
