// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entrypage.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "toolkit/entrypath.h"
#include "toolkit/pageloader.h"

#include <QDir>
#include <QFileInfo>
#include <QQmlEngine>

#include <utility>

namespace
{
/// Returns true if @p source is the absolute path of a regular file. URLs and paths of resources are not.
bool isLocalFile(const QVariant &source)
{
    const QString path = source.userType() == QMetaType::QString ? source.toString() : QString();
    return path.startsWith(QLatin1Char('/')) && QFileInfo(path).isFile();
}

QVariantMap describe(const QString &text, const QString &file, int line, int column)
{
    return {{QStringLiteral("text"), text},
            {QStringLiteral("file"), file},
            {QStringLiteral("line"), qMax(0, line)},
            {QStringLiteral("column"), qMax(0, column)}};
}

QVariantList describe(const QList<QQmlError> &errors)
{
    QVariantList descriptions;
    for (const QQmlError &error : errors) {
        const QString file = error.url().isLocalFile() ? error.url().toLocalFile() : error.url().toString();
        descriptions.append(describe(error.description(), file, error.line(), error.column()));
    }
    return descriptions;
}

/// Returns a text such as "/usr/share/page.qml:3: Syntax error".
QString toText(const QVariant &error)
{
    const QVariantMap description = error.toMap();
    return QStringLiteral("%1:%2: %3")
        .arg(description.value(QStringLiteral("file")).toString(),
             description.value(QStringLiteral("line")).toString(),
             description.value(QStringLiteral("text")).toString());
}
}

EntryPage::EntryPage(QQuickItem *parent)
    : QQuickItem(parent)
    , m_entry(new SettingsEntry(this))
    , m_announcer(*this,
                  {
                      {&EntryPage::itemChanged, [](const auto &page) { return QVariant::fromValue(page.item()); }},
                      {&EntryPage::errorsChanged, [](const auto &page) { return QVariant(page.errors()); }},
                      {&EntryPage::statusChanged, [](const auto &page) { return QVariant(int(page.status())); }},
                  })
{
    setFlag(ItemIsFocusScope);
    connect(m_entry, &SettingsEntry::pathChanged, this, &EntryPage::pathChanged);
    connect(m_entry, &SettingsEntry::pathChanged, this, &EntryPage::follow);
    connect(m_entry, &SettingsEntry::existsChanged, this, &EntryPage::follow);
    connect(m_entry, &SettingsEntry::paramsChanged, this, &EntryPage::follow);
}

EntryPage::~EntryPage()
{
    if (m_item) {
        m_item->disconnect(this); // it is deleted later than the members
    }
}

QString EntryPage::path() const
{
    return m_entry->path();
}

void EntryPage::setPath(const QString &path)
{
    m_entry->setPath(path);
}

SettingsEntry *EntryPage::entry() const
{
    return m_entry;
}

EntryPage::Status EntryPage::status() const
{
    return m_status;
}

QQuickItem *EntryPage::item() const
{
    return m_item;
}

QVariantList EntryPage::errors() const
{
    return m_errors;
}

void EntryPage::componentComplete()
{
    QQuickItem::componentComplete();
    follow();
}

void EntryPage::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    resizePage();
}

bool EntryPage::Content::operator==(const Content &other) const
{
    return path == other.path && exists == other.exists && source == other.source;
}

/// Loads the page if it is another one than before.
void EntryPage::follow()
{
    const Content content{EntryPath::normalized(path()), m_entry->exists(),
                          m_entry->params().value(QStringLiteral("source"))};
    if (isComponentComplete() && !(content == m_content)) {
        m_content = content;
        load();
    }
}

void EntryPage::load()
{
    unload();
    if (!m_content.exists) {
        m_status = m_content.path.isEmpty() ? Null : Gone;
    } else if (isLocalFile(m_content.source)) {
        m_status = Loading;
        startLoading();
    } else {
        fail(QLatin1String(Messages::PageIsNoFile));
    }
    m_announcer.announce(this);
}

void EntryPage::unload()
{
    m_loader.reset();
    m_errors.clear();
    if (QQuickItem *item = std::exchange(m_item, nullptr)) {
        item->disconnect(this);
        item->setParentItem(nullptr);
        item->deleteLater(); // one of its handlers may be running
    }
}

void EntryPage::startLoading()
{
    auto entry = std::make_unique<SettingsEntry>();
    entry->setFavoritesKey(m_entry->favoritesKey());
    entry->setUserModifiedKey(m_entry->userModifiedKey());
    entry->setPath(path());
    const QString file = QDir::cleanPath(m_content.source.toString()); // "//host/file" would be on another machine
    m_loader = std::make_unique<PageLoader>(qmlEngine(this), file, std::move(entry), size());
    connect(m_loader.get(), &PageLoader::finished, this, &EntryPage::finishLoading);
}

void EntryPage::finishLoading()
{
    const std::unique_ptr<PageLoader> loader = std::move(m_loader);
    std::unique_ptr<QObject> page = loader->takePage();
    if (auto *item = qobject_cast<QQuickItem *>(page.get())) {
        page.release();
        show(item);
    } else if (page) {
        fail(QLatin1String(Messages::PageIsNoItem));
    } else {
        fail(describe(loader->errors()));
    }
    m_announcer.announce(this);
}

void EntryPage::show(QQuickItem *page)
{
    m_status = Ready;
    m_item = page;
    page->setParent(this);
    page->setParentItem(this);
    resizePage();
    connect(page, &QObject::destroyed, this, &EntryPage::forget);
    connect(page, &QQuickItem::implicitWidthChanged, this, &EntryPage::adoptImplicitSize);
    connect(page, &QQuickItem::implicitHeightChanged, this, &EntryPage::adoptImplicitSize);
    adoptImplicitSize();
}

/// Reports that the page was deleted by itself or by others.
void EntryPage::forget()
{
    m_item = nullptr;
    fail(QLatin1String(Messages::PageIsDeleted));
    m_announcer.announce(this);
}

void EntryPage::fail(const QString &reason)
{
    fail({describe(reason, m_content.source.toString(), 0, 0)});
}

void EntryPage::fail(const QVariantList &errors)
{
    m_status = Error;
    m_errors = errors;
    qCWarning(lcSettings) << Messages::CannotShowPage << quoted(m_content.path)
                          << quoted(toText(errors.constFirst()));
}

void EntryPage::resizePage()
{
    if (m_item) {
        m_item->setSize(size());
    }
}

void EntryPage::adoptImplicitSize()
{
    setImplicitSize(m_item->implicitWidth(), m_item->implicitHeight());
}
