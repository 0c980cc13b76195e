// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "registrationfiles.h"

#include "pluginregistry.h"
#include "treeitem.h"

#include <mgconfitem.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

RegistrationFiles::RegistrationFiles(const QString &packagesDirectory, QObject *parent)
    : QAbstractListModel(parent)
    , m_packages(packagesDirectory)
    , m_entries(QStringLiteral("/usr/share/velka-settings/entries"))
    , m_maskedSettings(new MGConfItem(QStringLiteral("/apps/velka-settings/maskedSettings"), this))
{
    const QStringList names = m_packages.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        readFile(name);
    }
    connect(PluginRegistry::instance(), &PluginRegistry::contentChanged, this, &RegistrationFiles::updateRows);
    connect(m_maskedSettings, &MGConfItem::valueChanged, this, &RegistrationFiles::updateRows);
    connect(m_maskedSettings, &MGConfItem::valueChanged, this, &RegistrationFiles::maskedPathsChanged);
}

void RegistrationFiles::readFile(const QString &name)
{
    QFile source(m_packages.filePath(name));
    if (!source.open(QIODevice::ReadOnly)) {
        qWarning("Can't read %s", qPrintable(source.fileName()));
        return;
    }
    const QJsonObject registration = QJsonDocument::fromJson(source.readAll()).object();
    File file;
    file.name = name;
    file.requiredGroup = registration.value(QLatin1String("required_group")).toString();
    file.disabledGroup = registration.value(QLatin1String("disabled_group")).toString();
    const QJsonArray entries = registration.value(QLatin1String("entries")).toArray();
    for (const QJsonValue &entry : entries) {
        file.paths.append(entry.toObject().value(QLatin1String("path")).toString());
    }
    m_files.append(file);
}

int RegistrationFiles::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_files.count();
}

QVariant RegistrationFiles::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const File &file = m_files.at(index.row());
    switch (role) {
    case FileNameRole:
        return file.name;
    case InstalledRole:
        return m_entries.exists(file.name);
    case EntryCountRole:
        return entryCount(file);
    case MaskedRole:
        return isMasked(file);
    case RequiredGroupRole:
        return file.requiredGroup;
    case DisabledGroupRole:
        return file.disabledGroup;
    }
    return {};
}

QHash<int, QByteArray> RegistrationFiles::roleNames() const
{
    return {
        {FileNameRole, "fileName"}, {InstalledRole, "installed"},         {EntryCountRole, "entryCount"},
        {MaskedRole, "masked"},     {RequiredGroupRole, "requiredGroup"}, {DisabledGroupRole, "disabledGroup"},
    };
}

QStringList RegistrationFiles::maskedPaths() const
{
    return m_maskedSettings->value().toStringList();
}

int RegistrationFiles::rowOf(const QString &fileName) const
{
    const auto it = std::find_if(m_files.cbegin(), m_files.cend(),
                                 [&fileName](const File &file) { return file.name == fileName; });
    return it == m_files.cend() ? -1 : int(std::distance(m_files.cbegin(), it));
}

void RegistrationFiles::setInstalled(int row, bool installed)
{
    const QString name = m_files.at(row).name;
    const QString target = m_entries.filePath(name);
    if (!(installed ? QFile::copy(m_packages.filePath(name), target) : QFile::remove(target))) {
        qWarning("Can't %s %s", installed ? "install" : "remove", qPrintable(target));
    }
    updateRows();
}

void RegistrationFiles::setMasked(int row, bool masked)
{
    setPathsMasked(m_files.at(row).paths, masked);
}

void RegistrationFiles::setPathMasked(const QString &path, bool masked)
{
    setPathsMasked({path}, masked);
}

void RegistrationFiles::setPathsMasked(const QStringList &paths, bool masked)
{
    QStringList all = maskedPaths();
    for (const QString &path : paths) {
        all.removeAll(path);
    }
    if (masked) {
        all.append(paths);
    }
    m_maskedSettings->set(all);
}

void RegistrationFiles::updateRows()
{
    if (!m_files.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(m_files.count() - 1));
    }
}

bool RegistrationFiles::isMasked(const File &file) const
{
    const QStringList masked = maskedPaths();
    return std::all_of(file.paths.cbegin(), file.paths.cend(),
                       [&masked](const QString &path) { return masked.contains(path); });
}

int RegistrationFiles::entryCount(const File &file) const
{
    TreeItem *const root = PluginRegistry::instance()->getItem({});
    const auto isOfFile = [&file](const TreeItem *item) { return item->fromFile() == file.name; };
    return root->getSubitems(TreeItem::orderLessThan, isOfFile, -1).count();
}

#include "moc_registrationfiles.cpp"
