// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * A fenced code block of a Markdown document. The words behind its opening fence are the language, then a file name
 * and flags, where the language has them. A "console" block is no block of its own: it is what the one before it
 * prints.
 */
struct CodeBlock {
    QString document; ///< its path
    int line = 0;
    QString language;
    QString name;
    QStringList flags;
    QString text;
    QStringList output;
};
Q_DECLARE_METATYPE(CodeBlock)

/// The code blocks of @p document, in their order.
QVector<CodeBlock> readCodeBlocks(const QString &document);
