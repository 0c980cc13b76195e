// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "titletext.h"

#include "loadrecord.h"
#include "registry/catalogtranslator.h"
#include "registry/titles.h"
#include "registry/treeitem.h"

namespace
{
/// Returns the catalog that has a text for @p id, null when there is none.
const LoadRecord::Catalog *catalogOf(const QString &id, const QVector<LoadRecord::Catalog> &catalogs)
{
    const QByteArray key = id.toLocal8Bit();
    for (auto it = catalogs.crbegin(); it != catalogs.crend(); ++it) {
        if (!it->translator->translate(nullptr, key.constData()).isNull()) {
            return &*it;
        }
    }
    return nullptr;
}

/// Returns why @p catalog has no text.
QString withoutText(const LoadRecord::Catalog &catalog)
{
    const QString error = catalog.translator->error();
    if (!error.isEmpty()) {
        return QStringLiteral("the library cannot use the catalog %1").arg(error);
    }
    const QString path = catalog.translator->filePath();
    return path.isEmpty() ? QStringLiteral("no file of the catalog \"%1\" could be loaded").arg(catalog.name)
                          : QStringLiteral("%1 does not have it").arg(path);
}

/// Returns a line for each catalog that the file of the entry names, none of which has the text.
QStringList catalogsAskedFor(const QString &fileName, const LoadRecord &record)
{
    QStringList lines;
    for (const FileReport &report : record.files()) {
        if (report.name != fileName || !report.file) {
            continue;
        }
        for (const LoadRecord::Catalog &catalog : record.catalogs()) {
            for (const QString &name :
                 {report.file->translationCatalog, report.file->complementaryTranslationCatalog}) {
                if (!name.isEmpty() && (catalog.name == name || catalog.name == name + QLatin1String("_eng_en"))) {
                    lines.append(withoutText(catalog));
                }
            }
        }
    }
    return lines;
}

QStringList origin(const TreeItem &item, const Title &title, const QString &idKey, const QString &plainKey,
                   const LoadRecord &record)
{
    const QString id = item.value(idKey).toString();
    const LoadRecord::Catalog *catalog = id.isEmpty() ? nullptr : catalogOf(id, record.catalogs());
    if (title.source == TitleSource::Catalog && catalog) {
        return {QStringLiteral("the text of \"%1\" in %2").arg(id, catalog->translator->filePath())};
    }
    QStringList lines;
    switch (title.source) {
    case TitleSource::Catalog:
        break;
    case TitleSource::PlainText:
        lines.append(QStringLiteral("\"%1\" of the entry").arg(plainKey));
        break;
    case TitleSource::NodeName:
        lines.append(QStringLiteral("\"!!\" and the name, because there is no text"));
        break;
    case TitleSource::Nothing:
        lines.append(QStringLiteral("the entry has none"));
        break;
    }
    if (!id.isEmpty()) {
        lines.append(catalog ? QStringLiteral("the text of \"%1\" in %2 is empty or the id itself")
                                   .arg(id, catalog->translator->filePath())
                             : QStringLiteral("no catalog has the translation id \"%1\"").arg(id));
        lines += catalogsAskedFor(item.fromFile(), record);
    }
    return lines;
}
}

QStringList titleOrigin(const TreeItem &item, const LoadRecord &record)
{
    return origin(item, titleOf(item), QStringLiteral("translation_id"), QStringLiteral("title"), record);
}

QStringList shortTitleOrigin(const TreeItem &item, const LoadRecord &record)
{
    return origin(item, shortTitleOf(item), QStringLiteral("translation_id_short"), QStringLiteral("title_short"),
                  record);
}
