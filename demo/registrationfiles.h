// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QAbstractListModel>
#include <QDir>
#include <QStringList>
#include <QVector>

class MGConfItem;

/**
 * The registration files of the demo's packages, one row each, for the developer drawer.
 *
 * A file is installed by copying it into the directory that the registry watches, and masked by adding the paths
 * of its entries to the masked-settings key. The rows are fixed; their roles follow the registry and the key.
 */
class RegistrationFiles : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QStringList maskedPaths READ maskedPaths NOTIFY maskedPathsChanged)

public:
    enum Role {
        FileNameRole = Qt::UserRole + 1,
        InstalledRole, ///< bool, true if the file is in the registry's directory
        EntryCountRole, ///< int, nodes of the tree that the file declared
        MaskedRole, ///< bool, true if every path of the file is masked
        RequiredGroupRole,
        DisabledGroupRole,
    };

    explicit RegistrationFiles(const QString &packagesDirectory, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    QStringList maskedPaths() const;
    Q_INVOKABLE int rowOf(const QString &fileName) const;
    Q_INVOKABLE void setInstalled(int row, bool installed);
    Q_INVOKABLE void setMasked(int row, bool masked);
    Q_INVOKABLE void setPathMasked(const QString &path, bool masked);

Q_SIGNALS:
    void maskedPathsChanged();

private:
    struct File {
        QString name;
        QStringList paths;
        QString requiredGroup;
        QString disabledGroup;
    };

    void readFile(const QString &name);
    void updateRows();
    bool isMasked(const File &file) const;
    int entryCount(const File &file) const;
    void setPathsMasked(const QStringList &paths, bool masked);

    const QDir m_packages;
    const QDir m_entries;
    MGConfItem *const m_maskedSettings;
    QVector<File> m_files;
};
