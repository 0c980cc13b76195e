// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "common/modelsources.h"

#include <QAbstractItemModel>
#include <QConcatenateTablesProxyModel>
#include <QList>
#include <QVariant>

namespace
{
QList<QAbstractItemModel *> sourcesOf(const QAbstractItemModel *model)
{
    if (const auto *tables = qobject_cast<const QConcatenateTablesProxyModel *>(model)) {
        return tables->sourceModels();
    }
    return {model->property("sourceModel").value<QAbstractItemModel *>()};
}
}

bool isBuiltOn(const QAbstractItemModel *model, const QAbstractItemModel *source)
{
    QList<const QAbstractItemModel *> models{model};
    for (int i = 0; i < models.size(); ++i) {
        const QList<QAbstractItemModel *> sources = sourcesOf(models.at(i));
        for (const QAbstractItemModel *next : sources) {
            if (next && !models.contains(next)) { // others may be built on each other
                models.append(next);
            }
        }
    }
    return models.contains(source);
}
