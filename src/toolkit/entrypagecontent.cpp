// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/entrypagecontent.h"

#include "common/logging.h"
#include "common/logtext.h"
#include "common/messages.h"
#include "toolkit/entrypath.h"
#include "toolkit/pageloader.h"

#include <QDir>
#include <QFileInfo>
#include <QQmlEngine>
#include <QQmlProperty>

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

void setParentItem(QObject *item, QObject *parent)
{
    QQmlProperty::write(item, QStringLiteral("parent"), QVariant::fromValue(parent));
}
}

EntryPageContent::EntryPageContent(QObject *parent)
    : QObject(parent)
    , m_entry(new SettingsEntry(this))
    , m_announcer(
          *this,
          {
              {&EntryPageContent::itemChanged, [](const auto &page) { return QVariant::fromValue(page.item()); }},
              {&EntryPageContent::errorsChanged, [](const auto &page) { return QVariant(page.errors()); }},
              {&EntryPageContent::statusChanged, [](const auto &page) { return QVariant(int(page.status())); }},
          })
{
    connect(m_entry, &SettingsEntry::pathChanged, this, &EntryPageContent::pathChanged);
    connect(m_entry, &SettingsEntry::pathChanged, this, &EntryPageContent::follow);
    connect(m_entry, &SettingsEntry::existsChanged, this, &EntryPageContent::follow);
    connect(m_entry, &SettingsEntry::paramsChanged, this, &EntryPageContent::follow);
}

EntryPageContent::~EntryPageContent()
{
    if (m_item) {
        m_item->disconnect(this); // it is deleted later than the members
    }
}

QSizeF EntryPageContent::size() const
{
    return m_size;
}

void EntryPageContent::setSize(const QSizeF &size)
{
    if (m_size != size) {
        m_size = size;
        resizePage();
        Q_EMIT sizeChanged();
    }
}

QString EntryPageContent::path() const
{
    return m_entry->path();
}

void EntryPageContent::setPath(const QString &path)
{
    m_entry->setPath(path);
}

SettingsEntry *EntryPageContent::entry() const
{
    return m_entry;
}

EntryPageContent::Status EntryPageContent::status() const
{
    return m_status;
}

QObject *EntryPageContent::item() const
{
    return m_item;
}

QVariantList EntryPageContent::errors() const
{
    return m_errors;
}

void EntryPageContent::classBegin() {}

void EntryPageContent::componentComplete()
{
    m_isComplete = true;
    follow();
}

bool EntryPageContent::Shown::operator==(const Shown &other) const
{
    return path == other.path && exists == other.exists && source == other.source;
}

/// Loads the page if it is another one than before.
void EntryPageContent::follow()
{
    const Shown shown{EntryPath::normalized(path()), m_entry->exists(),
                      m_entry->params().value(QStringLiteral("source"))};
    if (m_isComplete && !(shown == m_shown)) {
        m_shown = shown;
        load();
    }
}

void EntryPageContent::load()
{
    unload();
    if (!m_shown.exists) {
        m_status = m_shown.path.isEmpty() ? Null : Gone;
    } else if (isLocalFile(m_shown.source)) {
        m_status = Loading;
        startLoading();
    } else {
        fail(QLatin1String(Messages::PageIsNoFile));
    }
    m_announcer.announce(this);
}

void EntryPageContent::unload()
{
    m_loader.reset();
    m_errors.clear();
    if (QObject *item = std::exchange(m_item, nullptr)) {
        item->disconnect(this);
        setParentItem(item, nullptr);
        item->deleteLater(); // one of its handlers may be running
    }
}

void EntryPageContent::startLoading()
{
    auto entry = std::make_unique<SettingsEntry>();
    entry->setFavoritesKey(m_entry->favoritesKey());
    entry->setUserModifiedKey(m_entry->userModifiedKey());
    entry->setPath(path());
    const QString file = QDir::cleanPath(m_shown.source.toString()); // "//host/file" would be on another machine
    m_loader = std::make_unique<PageLoader>(qmlEngine(this), file, std::move(entry), m_size);
    connect(m_loader.get(), &PageLoader::finished, this, &EntryPageContent::finishLoading);
}

void EntryPageContent::finishLoading()
{
    const std::unique_ptr<PageLoader> loader = std::move(m_loader);
    std::unique_ptr<QObject> page = loader->takePage();
    if (page && PageLoader::isItem(*page)) {
        show(page.release());
    } else if (page) {
        fail(QLatin1String(Messages::PageIsNoItem));
    } else if (loader->errors().isEmpty()) {
        fail(QLatin1String(Messages::PageIsDeleted));
    } else {
        fail(describe(loader->errors()));
    }
    m_announcer.announce(this);
}

void EntryPageContent::show(QObject *page)
{
    m_status = Ready;
    m_item = page;
    page->setParent(parent());
    setParentItem(page, parent());
    resizePage();
    connect(page, &QObject::destroyed, this, &EntryPageContent::forget);
}

/// Reports that the page was deleted by itself or by others.
void EntryPageContent::forget()
{
    m_item = nullptr;
    fail(QLatin1String(Messages::PageIsDeleted));
    m_announcer.announce(this);
}

void EntryPageContent::fail(const QString &reason)
{
    fail({describe(reason, m_shown.source.toString(), 0, 0)});
}

void EntryPageContent::fail(const QVariantList &errors)
{
    m_status = Error;
    m_errors = errors;
    qCWarning(lcSettings) << Messages::CannotShowPage << quoted(m_shown.path)
                          << quoted(toText(errors.constFirst()));
}

void EntryPageContent::resizePage()
{
    if (m_item) {
        PageLoader::resize(m_item, m_size);
    }
}

#include "moc_entrypagecontent.cpp"
