// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "catalogbytes.h"

#include <QTranslator>
#include <QtEndian>

namespace
{
template<typename Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof(number), '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}
}

QByteArray CatalogBytes::magic()
{
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
}

QByteArray CatalogBytes::number16(quint16 number)
{
    return bigEndian(number);
}

QByteArray CatalogBytes::number32(quint32 number)
{
    return bigEndian(number);
}

QByteArray CatalogBytes::utf16(const QByteArray &latin1)
{
    QByteArray bytes;
    for (const char character : latin1) {
        bytes += '\0';
        bytes += character;
    }
    return bytes;
}

QByteArray CatalogBytes::part(int tag, quint32 length, const QByteArray &content)
{
    return char(tag) + number32(length) + content;
}

QByteArray CatalogBytes::part(int tag, const QByteArray &content)
{
    return part(tag, quint32(content.size()), content);
}

QByteArray CatalogBytes::contexts(const QByteArray &content)
{
    return part(0x2f, content);
}

QByteArray CatalogBytes::hashes(const QByteArray &content)
{
    return part(0x42, content);
}

QByteArray CatalogBytes::messages(const QByteArray &content)
{
    return part(0x69, content);
}

QByteArray CatalogBytes::numerusRules(const QByteArray &content)
{
    return part(0x88, content);
}

QByteArray CatalogBytes::dependencySection(const QByteArray &content)
{
    return part(0x96, content);
}

QByteArray CatalogBytes::entry(quint32 hash, quint32 offset)
{
    return number32(hash) + number32(offset);
}

QByteArray CatalogBytes::translation(const char *latin1)
{
    return part(3, utf16(latin1));
}

QByteArray CatalogBytes::source(const char *latin1)
{
    return part(6, QByteArray(latin1));
}

QByteArray CatalogBytes::end()
{
    return "\1";
}

QByteArray CatalogBytes::message()
{
    return translation("A") + source("a") + end();
}

QByteArray CatalogBytes::withMessage(const QByteArray &message)
{
    return magic() + hashes(entry(HashOfA, 0)) + messages(message);
}

QByteArray CatalogBytes::sound()
{
    return withMessage(message());
}

QByteArray CatalogBytes::withDependencies(const QList<QByteArray> &names)
{
    QByteArray content;
    for (const QByteArray &name : names) {
        content += part(0, utf16(name)).mid(1);
    }
    return sound() + dependencySection(content);
}

QStringList lookUp(const QTranslator &translator)
{
    static const char *const contexts[] = {nullptr, "Menu", "Dialog", "Page", "Menus"};
    static const char *const sources[] = {nullptr,  "",      "a",    "b",    "Open",       "Close",    "%n day(s)",
                                          "Cancel", "Print", "Back", "Next", "test-files", "test-both"};
    static const char *const comments[] = {nullptr, "", "state", "page", "other"};
    QStringList texts;
    for (const char *context : contexts) {
        for (const char *source : sources) {
            for (const char *comment : comments) {
                for (int n : {-1, 0, 1, 2, 5, 22}) {
                    const QString text = translator.translate(context, source, comment, n);
                    texts.append(text.isNull() ? QStringLiteral("null") : QLatin1Char('=') + text);
                }
            }
        }
    }
    return texts;
}

bool findsNothing(const QTranslator &translator)
{
    const QStringList texts = lookUp(translator);
    return texts.count(QStringLiteral("null")) == texts.size();
}
