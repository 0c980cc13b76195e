// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * A fenced code block of a Markdown document. The words after its opening fence are the language and, for some
 * languages, a file name and flags. A "console" block belongs to the block before it, as its expected output.
 */
struct CodeBlock {
    QString document; ///< the path of the document
    int line = 0;
    QString language;
    QString name;
    QStringList flags;
    QString text;
    QStringList output;
};
Q_DECLARE_METATYPE(CodeBlock)

/// Returns the code blocks of @p document in their order.
QVector<CodeBlock> readCodeBlocks(const QString &document);
