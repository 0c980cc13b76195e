// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/catalogfile.h"

#include "registry/catalogsearch.h"
#include "registry/filename.h"

#include <regularfile.h>

#include <QDir>
#include <QFile>

namespace
{
// Of a catalog and its dependencies. The largest catalogs of large programs have a tenth of it.
constexpr qint64 MaxCatalogSize = 16 << 20;
constexpr int MaxCatalogFiles = 64;

/// Reads a catalog and its dependencies. QTranslator would map the files into memory, where others can change them, and
/// would follow the dependencies wherever they lead.
class CatalogReader
{
public:
    explicit CatalogReader(const QString &directory)
        : m_directory(directory)
    {
    }

    CatalogFault read(const QString &path, CatalogFile *file)
    {
        if (m_open.contains(path)) {
            return {path, QStringLiteral("depends on itself")};
        }
        if (++m_files > MaxCatalogFiles) {
            return {path, QStringLiteral("is one of too many dependencies")};
        }
        CatalogFault fault = parse(path, file);
        if (fault.reason.isEmpty()) {
            m_open.append(path);
            fault = readDependencies(file);
            m_open.removeLast();
        }
        return fault;
    }

private:
    CatalogFault parse(const QString &path, CatalogFile *file)
    {
        const FileContent content = contentOf(path);
        if (!content.error.isEmpty()) {
            return {path, QStringLiteral("cannot be read: ") + content.error};
        }
        m_remaining -= content.bytes.size();
        std::optional<CompiledCatalog> catalog = parseCompiledCatalog(content.bytes);
        if (!catalog) {
            return {path, QStringLiteral("is damaged, or no compiled catalog")};
        }
        file->path = path;
        file->catalog = *catalog;
        return {};
    }

    CatalogFault readDependencies(CatalogFile *file)
    {
        for (const QString &name : qAsConst(file->catalog.dependencies)) {
            file->dependencies.emplace_back();
            CatalogFault fault = readDependency(name, &file->dependencies.back());
            if (!fault.reason.isEmpty()) {
                return fault;
            }
        }
        return {};
    }

    CatalogFault readDependency(const QString &name, CatalogFile *file)
    {
        const QString path = isFileName(name) ? findCatalog(name, m_directory) : QString();
        if (path.isEmpty()) {
            return {name, QStringLiteral("is missing")};
        }
        if (!QDir::cleanPath(path).startsWith(QDir::cleanPath(m_directory) + QLatin1Char('/'))) {
            return {path, QStringLiteral("is in another directory")};
        }
        return read(path, file);
    }

    FileContent contentOf(const QString &path) const
    {
        if (!path.startsWith(QLatin1Char(':'))) {
            return readRegularFile(path, m_remaining);
        }
        QFile resource(path); // of the program
        resource.open(QIODevice::ReadOnly);
        return {resource.readAll(), {}};
    }

    const QString m_directory;
    QStringList m_open; ///< the catalog that is read, and those that depend on it
    int m_files = 0;
    qint64 m_remaining = MaxCatalogSize;
};
}

CatalogFault readCatalogFile(const QString &path, const QString &directory, CatalogFile *file)
{
    return CatalogReader(directory).read(path, file);
}
