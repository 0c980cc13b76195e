// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

// The input is an action as a file can declare it: the service, the path, the interface and the method, each followed
// by a byte 0xff, and then the arguments.

#include "harness.h"
#include "input.h"

#include "actions/quickactionreader.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace
{
constexpr char EndOfName = '\xff';
constexpr int MaxDepth = 8; ///< of other arguments than the deeply nested lists and maps

QString textOf(const QByteArray &bytes)
{
    // JSON can hold lone surrogates, which UTF-8 cannot.
    return QString::fromUtf8(bytes).replace(QChar(QChar::ReplacementCharacter), QChar(0xd800));
}

/// Returns @p value in @p depth nested lists or maps.
QVariant nested(QVariant value, int depth, bool isInLists)
{
    for (; depth > 0; --depth) {
        value = isInLists ? QVariant(QVariantList{value}) : QVariantMap{{QStringLiteral("key"), value}};
    }
    return value;
}

/// Returns a value that a registration file can contain.
QVariant readArgument(Input *input, int depth = 0)
{
    const int kind = depth < MaxDepth ? input->below(8) : 0;
    switch (kind) {
    case 0:
        return double(input->byte());
    case 1:
        return QVariant::fromValue(nullptr);
    case 2:
        return input->flag();
    case 3:
        return textOf(input->take(input->byte()));
    case 4: {
        QVariantMap map;
        for (int count = input->below(4); count > 0; --count) {
            const QString key = textOf(input->take(input->below(8)));
            map.insert(key, readArgument(input, depth + 1));
        }
        return map;
    }
    case 5: {
        QVariantList list;
        for (int count = input->below(8); count > 0; --count) {
            list.append(readArgument(input, depth + 1));
        }
        return list;
    }
    default:
        return nested(readArgument(input, depth + 1), input->byte(), kind == 6);
    }
}

QVariantMap readAction(const QByteArray &bytes)
{
    QVariantMap action{{QStringLiteral("requires-package"), QStringLiteral("package")}};
    int begin = 0;
    for (const QString &key : {QStringLiteral("remote-service"), QStringLiteral("remote-path"),
                               QStringLiteral("remote-interface"), QStringLiteral("remote-method")}) {
        const int end = bytes.indexOf(EndOfName, begin);
        const QByteArray name = bytes.mid(begin, end < 0 ? -1 : end - begin);
        action.insert(key, textOf(name));
        begin += name.size() + 1;
    }
    const QByteArray rest = bytes.mid(begin);
    Input input(reinterpret_cast<const std::uint8_t *>(rest.constData()), std::size_t(rest.size()));
    QVariantList arguments;
    while (!input.atEnd()) {
        arguments.append(readArgument(&input));
    }
    action.insert(QStringLiteral("remote-arguments"), arguments);
    return action;
}

/// Waits until the calls so far have failed. The bus replies in order, so the reply to a later call shows this.
void settle()
{
    const QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call));
    bool isFinished = false;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&isFinished] { isFinished = true; });
    while (!isFinished) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    require(!watcher.isError(), "a good call succeeds");
}
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QVariantMap action = readAction(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    QuickActionReader reader(nullptr);
    reader.trigger(action);
    settle();
    require(QDBusConnection::sessionBus().isConnected(), "the connection stays");
    return 0;
}
