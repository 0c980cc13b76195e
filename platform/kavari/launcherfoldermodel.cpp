// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "launcherfoldermodel.h"

#include "applicationlisting.h"
#include "launcherrows.h"
#include "menulayout.h"
#include "printable.h"
#include "regularfile.h"

#include <QFileInfo>
#include <QPointer>
#include <QQmlEngine>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

using namespace std::chrono_literals;

using Entry = std::shared_ptr<const MDesktopEntry>;

class LauncherFolderModelPrivate : public QObject
{
public:
    explicit LauncherFolderModelPrivate(LauncherFolderModel *model);
    ~LauncherFolderModelPrivate() override;

    void reload();

private:
    // The state of a file id. It has an item and a row when the file is that of a visible application.
    struct Known {
        quint64 revision = 0;
        LauncherItem *item = nullptr;
        std::optional<LauncherRow> row;
    };

    bool isChanging() const;
    void perform(const std::function<void()> &change);

    std::optional<MenuLayout> readLayout();
    void resetRows(const MenuLayout &layout);
    void arrange();
    void createFolders(QHash<LauncherFolderItem *, std::vector<LauncherRow>> *rows);
    LauncherFolderItem *folderOf(const MenuLayout::Place &place) const;
    LauncherFolderItem *folderOf(const QString &id) const;
    LauncherRow rowOf(LauncherItem *item) const;
    LauncherRow rowOf(LauncherFolderItem *folder, int rank) const;

    void follow(const QSet<QString> &ids);
    void update(const QString &id);
    void forgetRemoved(const QString &id);
    LauncherItem *createItem(const QString &id, const Entry &entry);
    void addItem(const QString &id, const Entry &entry);
    void changeItem(const QString &id, const Entry &entry);
    void removeItem(const QString &id);
    void loseItem(const QString &id);
    void loseFolder();

    LauncherFolderModel *const m_model;
    const QCollator m_collator;
    const std::shared_ptr<ApplicationListing> m_listing;
    QTimer m_reload; ///< runs while the menu file cannot be opened
    bool m_menuIsUnread = false;
    MenuLayout m_layout;
    QVector<QPointer<LauncherFolderItem>> m_folders; ///< as in the layout
    /// The items are not children: a QObject searches its children for each one that is deleted.
    QHash<QString, Known> m_known;
    QObject m_removed; ///< parent of the removed items until they are deleted
    QVector<std::function<void()>> m_deferred;
};

LauncherFolderModelPrivate::LauncherFolderModelPrivate(LauncherFolderModel *model)
    : m_model(model)
    , m_listing(ApplicationListing::shared())
{
    m_reload.setSingleShot(true);
    m_reload.setInterval(2s);
    connect(&m_reload, &QTimer::timeout, this, &LauncherFolderModelPrivate::reload);
    connect(m_listing.get(), &ApplicationListing::changed, this, &LauncherFolderModelPrivate::follow);
    m_layout = readLayout().value_or(MenuLayout());
    const QStringList ids = m_listing->ids();
    for (const QString &id : ids) {
        const ListedApplication application = *m_listing->application(id);
        LauncherItem *item = application.entry ? createItem(id, application.entry) : nullptr;
        m_known.insert(id, {application.revision, item, std::nullopt});
    }
    arrange();
}

LauncherFolderModelPrivate::~LauncherFolderModelPrivate()
{
    for (const Known &known : std::as_const(m_known)) {
        if (known.item) {
            disconnect(known.item, nullptr, this, nullptr);
            delete known.item;
        }
    }
}

/// Returns whether a change of rows has been announced and not been made, so that no other one may begin.
bool LauncherFolderModelPrivate::isChanging() const
{
    return m_model->m_isChanging || std::any_of(m_folders.cbegin(), m_folders.cend(), [](const auto &folder) {
               return folder && folder->m_isChanging;
           });
}

/// Runs @p change, or defers it when a handler requests it during another one.
void LauncherFolderModelPrivate::perform(const std::function<void()> &change)
{
    if (isChanging()) {
        m_deferred.append(change);
        return;
    }
    const QPointer<LauncherFolderModelPrivate> self(this); // a handler may delete the model
    change();
    while (self && !m_deferred.isEmpty()) {
        m_deferred.takeFirst()();
    }
}

void LauncherFolderModelPrivate::reload()
{
    perform([this] {
        const std::optional<MenuLayout> layout = readLayout();
        if (layout && !(*layout == m_layout)) {
            resetRows(*layout);
        }
    });
}

/// Returns nothing when the menu file cannot be read, an empty layout when there is none.
std::optional<MenuLayout> LauncherFolderModelPrivate::readLayout()
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
    const bool hasWarned = std::exchange(m_menuIsUnread, content.isShortage);
    if (content.isShortage) {
        m_reload.start();
    }
    if (content.error.isEmpty()) {
        return layout;
    }
    if (!content.isShortage || !hasWarned) {
        qWarning("LauncherFolderModel: cannot read \"%s\": %s", qUtf8Printable(printable(path)),
                 qUtf8Printable(content.error));
    }
    return std::nullopt;
}

void LauncherFolderModelPrivate::resetRows(const MenuLayout &layout)
{
    const auto outdated = m_folders;
    m_model->m_isChanging = true;
    m_model->beginResetModel();
    m_layout = layout;
    arrange();
    m_model->m_isChanging = false;
    // Deferred: one of them may be the caller.
    for (const QPointer<LauncherFolderItem> &folder : outdated) {
        if (folder) {
            folder->deleteLater();
        }
    }
    m_model->endResetModel();
}

/// Builds the rows of the model and of new folders from all items.
void LauncherFolderModelPrivate::arrange()
{
    QHash<LauncherFolderItem *, std::vector<LauncherRow>> rows;
    createFolders(&rows);
    for (auto it = m_known.begin(); it != m_known.end(); ++it) {
        it->row.reset();
        if (it->item) {
            it->row = rowOf(it->item);
            rows[folderOf(it.key())].push_back(*it->row);
        }
    }
    m_model->m_rows->assign(rows.take(m_model));
    for (const QPointer<LauncherFolderItem> &folder : std::as_const(m_folders)) {
        folder->m_rows->assign(rows.take(folder));
    }
}

void LauncherFolderModelPrivate::createFolders(QHash<LauncherFolderItem *, std::vector<LauncherRow>> *rows)
{
    m_folders.clear();
    for (const MenuLayout::Folder &folder : std::as_const(m_layout.folders)) {
        auto *item = new LauncherFolderItem(folder.title, m_model);
        QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
        connect(item, &QObject::destroyed, this, &LauncherFolderModelPrivate::loseFolder);
        (*rows)[folderOf(folder.place)].push_back(rowOf(item, folder.place.rank));
        m_folders.append(item);
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
    const QPointer<LauncherFolderModelPrivate> self(this);
    for (const QString &id : std::as_const(sorted)) {
        perform([this, id] { update(id); });
        if (!self) {
            return;
        }
        forgetRemoved(id);
    }
}

void LauncherFolderModelPrivate::update(const QString &id)
{
    const std::optional<ListedApplication> application = m_listing->application(id);
    Known &known = m_known[id];
    if (application && known.revision == application->revision) {
        return;
    }
    known.revision = application ? application->revision : 0;
    if (!application || !application->entry) {
        removeItem(id);
    } else if (known.item) {
        changeItem(id, application->entry);
    } else {
        addItem(id, application->entry);
    }
}

void LauncherFolderModelPrivate::forgetRemoved(const QString &id)
{
    const auto known = m_known.constFind(id);
    if (known != m_known.cend() && known->revision == 0 && !known->row) {
        m_known.erase(known);
    }
}

LauncherItem *LauncherFolderModelPrivate::createItem(const QString &id, const Entry &entry)
{
    auto *item = new LauncherItem(id, entry, nullptr);
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    connect(item, &QObject::destroyed, this, [this, id] { loseItem(id); });
    return item;
}

// In the functions below, the signals come last: handlers may call back.

void LauncherFolderModelPrivate::addItem(const QString &id, const Entry &entry)
{
    Known &known = m_known[id];
    known.item = createItem(id, entry);
    known.row = rowOf(known.item);
    folderOf(id)->addRow(*known.row);
}

void LauncherFolderModelPrivate::changeItem(const QString &id, const Entry &entry)
{
    Known &known = m_known[id];
    known.item->setEntry(entry);
    const QPointer<LauncherItem> item(known.item);
    const QPointer<LauncherFolderItem> folder(folderOf(id));
    folder->replaceRow(&known.row, rowOf(known.item));
    if (item) {
        Q_EMIT item->itemChanged();
    }
    if (item && folder) {
        Q_EMIT folder->itemChanged(item);
    }
}

void LauncherFolderModelPrivate::removeItem(const QString &id)
{
    Known &known = m_known[id];
    if (!known.item) {
        return;
    }
    const QPointer<LauncherItem> item(std::exchange(known.item, nullptr));
    item->setParent(&m_removed);
    folderOf(id)->dropRow(&known.row);
    if (item) {
        disconnect(item, nullptr, this, nullptr);
        item->deleteLater();
    }
}

/// Removes the row of an item that was deleted by others. It comes back when its file changes.
void LauncherFolderModelPrivate::loseItem(const QString &id)
{
    const auto lost = m_known.find(id);
    if (lost == m_known.end() || !lost->row || lost->row->object) {
        return; // removed before
    }
    lost->item = nullptr;
    lost->revision = 0;
    perform([this, id] {
        const auto known = m_known.find(id);
        if (known != m_known.end() && known->row && !known->item) {
            folderOf(id)->dropRow(&known->row);
        }
    });
}

/// Builds all rows again after a folder was deleted by others.
void LauncherFolderModelPrivate::loseFolder()
{
    perform([this] {
        if (m_folders.contains(nullptr)) {
            resetRows(m_layout);
        }
    });
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

#include "moc_launcherfoldermodel.cpp"
