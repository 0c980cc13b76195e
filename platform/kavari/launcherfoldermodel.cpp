// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcherfoldermodel.h"

#include "applicationfiles.h"
#include "launcherrow.h"
#include "menulayout.h"
#include "regularfile.h"

#include <mdesktopentry.h>

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

using Entry = std::unique_ptr<const MDesktopEntry>;

class LauncherFolderModelPrivate : public QObject
{
public:
    explicit LauncherFolderModelPrivate(LauncherFolderModel *model);

    void reload();

private:
    // The state of a file id. It has an item when the file is that of a visible application.
    struct Known {
        quint64 revision = 0;
        LauncherItem *item = nullptr;
        std::optional<LauncherRow> row;
    };

    void arrange();
    LauncherFolderItem *folderOf(const MenuLayout::Place &place) const;
    LauncherFolderItem *folderOf(const QString &id) const;
    LauncherRow rowOf(LauncherItem *item) const;
    LauncherRow rowOf(LauncherFolderItem *folder, int rank) const;

    void follow(const QSet<QString> &ids);
    void update(const QString &id);
    void addItem(const QString &id, Entry entry);
    void changeItem(const QString &id, Entry entry);
    void removeItem(const QString &id);

    LauncherFolderModel *const m_model;
    const QCollator m_collator;
    ApplicationFiles m_files;
    MenuLayout m_layout;
    QVector<LauncherFolderItem *> m_folders; ///< as in the layout
    QHash<QString, Known> m_known;
};

namespace
{
bool isShown(const MDesktopEntry &entry)
{
    const auto has = [&entry](const char *key, const char *value) {
        return entry.value(QStringLiteral("Desktop Entry"), QLatin1String(key)) == QLatin1String(value);
    };
    return entry.isValid() && has("Type", "Application") && !has("NoDisplay", "true") && !has("Hidden", "true");
}

/// Returns the content of the file, null when it is not that of a visible application.
Entry readApplication(const ApplicationFile &file)
{
    if (!file.regular) {
        return nullptr;
    }
    auto entry = std::make_unique<const MDesktopEntry>(file.path);
    if (!entry->errorString().isEmpty()) {
        qWarning("LauncherFolderModel: cannot read \"%s\": %s", qUtf8Printable(file.path),
                 qUtf8Printable(entry->errorString()));
    }
    return isShown(*entry) ? std::move(entry) : nullptr;
}

/// Returns nothing when the menu file cannot be read, an empty layout when there is none.
std::optional<MenuLayout> readLayout()
{
    const QString path = LauncherFolderModel::configFile();
    if (!QFileInfo::exists(path)) {
        return MenuLayout();
    }
    constexpr qint64 MaxSize = 64 << 10; // QXmlStreamReader takes quadratic time for the attributes of an element
    FileContent content = readRegularFile(path, MaxSize);
    MenuLayout layout;
    if (content.error.isEmpty()) {
        layout = parseMenu(content.bytes, &content.error);
    }
    if (!content.error.isEmpty()) {
        qWarning("LauncherFolderModel: cannot read \"%s\": %s", qUtf8Printable(path),
                 qUtf8Printable(content.error));
        return std::nullopt;
    }
    return layout;
}
}

LauncherFolderModelPrivate::LauncherFolderModelPrivate(LauncherFolderModel *model)
    : m_model(model)
    , m_files(QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
    , m_layout(readLayout().value_or(MenuLayout()))
{
    connect(&m_files, &ApplicationFiles::changed, this, &LauncherFolderModelPrivate::follow);
    const QSet<QString> ids = m_files.ids();
    for (const QString &id : ids) {
        const ApplicationFile file = *m_files.file(id);
        Entry entry = readApplication(file);
        LauncherItem *item = entry ? new LauncherItem(id, std::move(entry), m_model) : nullptr;
        m_known.insert(id, {file.revision, item, std::nullopt});
    }
    arrange();
}

void LauncherFolderModelPrivate::reload()
{
    const std::optional<MenuLayout> layout = readLayout();
    if (!layout || *layout == m_layout) {
        return;
    }
    const QVector<LauncherFolderItem *> outdated = m_folders;
    m_model->beginResetModel();
    m_layout = *layout;
    arrange();
    m_model->endResetModel();
    // Deferred: one of them may be the caller.
    for (LauncherFolderItem *folder : outdated) {
        folder->deleteLater();
    }
}

/// Builds the rows of the model and of new folders from all items.
void LauncherFolderModelPrivate::arrange()
{
    m_folders.clear();
    m_model->m_rows.clear();
    for (const MenuLayout::Folder &folder : std::as_const(m_layout.folders)) {
        auto *item = new LauncherFolderItem(folder.title, m_model);
        folderOf(folder.place)->m_rows.push_back(rowOf(item, folder.place.rank));
        m_folders.append(item);
    }
    for (auto it = m_known.begin(); it != m_known.end(); ++it) {
        if (it->item) {
            it->row = rowOf(it->item);
            folderOf(it.key())->m_rows.push_back(*it->row);
        }
    }
    std::sort(m_model->m_rows.begin(), m_model->m_rows.end());
    for (LauncherFolderItem *folder : std::as_const(m_folders)) {
        std::sort(folder->m_rows.begin(), folder->m_rows.end());
    }
}

LauncherFolderItem *LauncherFolderModelPrivate::folderOf(const MenuLayout::Place &place) const
{
    return place.folder == MenuLayout::Root ? m_model : m_folders.at(place.folder);
}

LauncherFolderItem *LauncherFolderModelPrivate::folderOf(const QString &id) const
{
    const auto place = m_layout.applications.constFind(id);
    return place == m_layout.applications.cend() ? m_model : folderOf(*place);
}

LauncherRow LauncherFolderModelPrivate::rowOf(LauncherItem *item) const
{
    const auto place = m_layout.applications.constFind(item->fileID());
    const int rank = place == m_layout.applications.cend() ? LauncherRow::Unordered : place->rank;
    return {item, rank, m_collator.sortKey(item->title().toCaseFolded()), item->fileID()};
}

LauncherRow LauncherFolderModelPrivate::rowOf(LauncherFolderItem *folder, int rank) const
{
    return {folder, rank, m_collator.sortKey(QString()), QString()};
}

void LauncherFolderModelPrivate::follow(const QSet<QString> &ids)
{
    QStringList sorted = ids.values();
    sorted.sort();
    for (const QString &id : std::as_const(sorted)) {
        update(id);
    }
}

void LauncherFolderModelPrivate::update(const QString &id)
{
    const std::optional<ApplicationFile> file = m_files.file(id);
    if (!file) {
        removeItem(id);
        m_known.remove(id);
        return;
    }
    Known &known = m_known[id];
    if (known.revision == file->revision) {
        return;
    }
    known.revision = file->revision;
    Entry entry = readApplication(*file);
    if (!entry) {
        removeItem(id);
    } else if (known.item) {
        changeItem(id, std::move(entry));
    } else {
        addItem(id, std::move(entry));
    }
}

// In the functions below, the signals come last: handlers may call back.

void LauncherFolderModelPrivate::addItem(const QString &id, Entry entry)
{
    auto *item = new LauncherItem(id, std::move(entry), m_model);
    const LauncherRow row = rowOf(item);
    m_known[id].item = item;
    m_known[id].row = row;
    folderOf(id)->addRow(row);
}

void LauncherFolderModelPrivate::changeItem(const QString &id, Entry entry)
{
    Known &known = m_known[id];
    LauncherItem *const item = known.item;
    item->setEntry(std::move(entry));
    const LauncherRow old = *known.row;
    const LauncherRow row = rowOf(item);
    known.row = row;
    LauncherFolderItem *const folder = folderOf(id);
    folder->replaceRow(old, row);
    Q_EMIT item->itemChanged();
    Q_EMIT folder->itemChanged(item);
}

void LauncherFolderModelPrivate::removeItem(const QString &id)
{
    Known &known = m_known[id];
    if (!known.item) {
        return;
    }
    LauncherItem *const item = std::exchange(known.item, nullptr);
    const LauncherRow row = *std::exchange(known.row, std::nullopt);
    folderOf(id)->dropRow(row);
    item->deleteLater();
}

LauncherFolderModel::LauncherFolderModel(QObject *parent)
    : LauncherFolderItem(QString(), parent)
    , d(std::make_unique<LauncherFolderModelPrivate>(this))
{
}

LauncherFolderModel::~LauncherFolderModel() = default;

QString LauncherFolderModel::configFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/menus/kavari-applications.menu");
}

void LauncherFolderModel::load()
{
    d->reload();
}
