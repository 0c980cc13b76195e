// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accessibletree.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QStringList>

namespace
{
QStringList states(const QAccessible::State &state)
{
    QStringList names;
    const auto add = [&names](bool isSet, const char *name) {
        if (isSet) {
            names.append(QLatin1String(name));
        }
    };
    add(state.disabled, "disabled");
    add(state.focusable, "focusable");
    add(state.checkable, "checkable");
    add(state.checked, "checked");
    return names;
}

bool isLeftOut(const QAccessibleInterface &control)
{
    const bool hasNoRole = control.role() == QAccessible::Client || control.role() == QAccessible::NoRole;
    return hasNoRole && control.text(QAccessible::Name).isEmpty();
}

void append(const QAccessibleInterface &control, int depth, QString *tree)
{
    if (control.state().invisible) {
        return;
    }
    const bool leftOut = isLeftOut(control);
    if (!leftOut) {
        *tree += QString(2 * depth, QLatin1Char(' ')) + describe(control) + QLatin1Char('\n');
    }
    for (int i = 0; i < control.childCount(); ++i) {
        if (const QAccessibleInterface *const child = control.child(i)) {
            append(*child, leftOut ? depth : depth + 1, tree);
        }
    }
}
}

QString describe(const QAccessibleInterface &control)
{
    const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
    QStringList words{QLatin1String(roles.valueToKey(control.role()))};
    words.append(QLatin1Char('"') + control.text(QAccessible::Name) + QLatin1Char('"'));
    const QString description = control.text(QAccessible::Description);
    if (!description.isEmpty()) {
        words.append(QLatin1Char('(') + description + QLatin1Char(')'));
    }
    return (words + states(control.state())).join(QLatin1Char(' '));
}

QString accessibleTree(const QAccessibleInterface &root)
{
    QString tree;
    append(root, 0, &tree);
    return tree;
}
