// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "codeblock.h"

#include <QFile>

namespace
{
const QString s_fence = QStringLiteral("```");

CodeBlock makeBlock(const QString &document, int line, QStringList words, const QStringList &lines)
{
    CodeBlock block;
    block.document = document;
    block.line = line;
    block.language = words.takeFirst();
    if (!words.isEmpty()) {
        block.name = words.takeFirst();
    }
    block.flags = words;
    block.text = lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
    return block;
}
}

QVector<CodeBlock> readCodeBlocks(const QString &document)
{
    QFile file(document);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Can't read %s", qPrintable(document));
    }
    QVector<CodeBlock> blocks;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int start = 0; start < lines.size(); ++start) {
        // Indented fences count, too, so that every block is checked.
        if (!lines.at(start).trimmed().startsWith(s_fence)) {
            continue;
        }
        const int end = lines.indexOf(s_fence, start + 1);
        if (end < 0) {
            qFatal("%s:%d: the code block has no end", qPrintable(document), start + 1);
        }
        const QStringList words = lines.at(start).trimmed().mid(s_fence.size()).split(QLatin1Char(' '));
        const QStringList content = lines.mid(start + 1, end - start - 1);
        if (words.first() == QLatin1String("console") && !blocks.isEmpty() && blocks.last().output.isEmpty()) {
            blocks.last().output = content;
        } else {
            blocks.append(makeBlock(document, start + 1, words, content));
        }
        start = end;
    }
    return blocks;
}
