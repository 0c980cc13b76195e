// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registry/catalogtranslator.h"

#include "registry/catalogfile.h"
#include "registry/catalogsearch.h"

#include <QCoreApplication>
#include <QDebug>

namespace
{
/// Returns why the catalog at @p path cannot be used because of @p fault.
QString describe(const CatalogFault &fault, const QString &path)
{
    QString text;
    QDebug stream(&text); // escapes the paths
    stream << path << "because";
    if (fault.path == path) {
        stream << "it";
    } else {
        stream << "its dependency" << fault.path;
    }
    stream << qUtf8Printable(fault.reason);
    return text.trimmed();
}
}

CatalogTranslator::~CatalogTranslator()
{
    // QTranslator removes itself too late, after the catalog is deleted.
    if (QCoreApplication::instance()) {
        QCoreApplication::removeTranslator(this);
    }
}

bool CatalogTranslator::load(const QString &name, const QString &directory)
{
    return loadFile(findCatalog(name, directory), directory);
}

bool CatalogTranslator::load(const QLocale &locale, const QString &name, const QString &prefix,
                             const QString &directory)
{
    return loadFile(findCatalog(locale, name, prefix, directory), directory);
}

QString CatalogTranslator::filePath() const
{
    return m_filePath;
}

QString CatalogTranslator::error() const
{
    return m_error;
}

QList<QByteArray> CatalogTranslator::sourceTexts() const
{
    return m_catalog.sourceTexts();
}

bool CatalogTranslator::isEmpty() const
{
    return QTranslator::isEmpty() && m_dependencies.empty();
}

QString CatalogTranslator::translate(const char *context, const char *sourceText, const char *disambiguation,
                                     int n) const
{
    QString own = QTranslator::translate(context, sourceText, disambiguation, n);
    if (!own.isNull() || m_dependencies.empty() || !m_catalog.leavesToDependencies(context ? context : "")) {
        return own;
    }
    // As in QTranslator: its last look-up among its own messages drops the disambiguation, also for the dependencies.
    const char *remaining = m_catalog.hasMessages ? nullptr : disambiguation;
    for (const auto &dependency : m_dependencies) {
        QString text = dependency->translate(context, sourceText, remaining, n);
        if (!text.isNull()) {
            return text;
        }
    }
    return {};
}

bool CatalogTranslator::loadFile(const QString &path, const QString &directory)
{
    CatalogFile file;
    m_error.clear();
    if (!path.isEmpty()) {
        const CatalogFault fault = readCatalogFile(path, directory, &file);
        if (!fault.reason.isEmpty()) {
            file = {};
            m_error = describe(fault, path);
        }
    }
    use(file);
    return !m_filePath.isEmpty();
}

/// An empty @p file leaves nothing of an earlier catalog.
void CatalogTranslator::use(const CatalogFile &file)
{
    const auto *image = reinterpret_cast<const uchar *>(file.catalog.image.constData());
    QTranslator::load(image, file.catalog.image.size());
    m_dependencies.clear();
    m_filePath = file.path;
    m_catalog = file.catalog; // shares the image
    for (const CatalogFile &dependency : file.dependencies) {
        m_dependencies.push_back(std::make_unique<CatalogTranslator>());
        m_dependencies.back()->use(dependency);
    }
}
