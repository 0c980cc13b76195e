// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "toolkit/pageloader.h"

#include "toolkit/settingsentry.h"

#include <QQmlIncubator>
#include <QUrl>

#include <utility>

namespace
{
constexpr char EntryProperty[] = "entry";
}

class PageLoader::Incubator : public QQmlIncubator
{
public:
    explicit Incubator(PageLoader *loader)
        : QQmlIncubator(Asynchronous)
        , m_loader(loader)
    {
    }

protected:
    void setInitialState(QObject *page) override
    {
        m_loader->prepare(page);
    }

    void statusChanged(Status status) override
    {
        if (status == Ready || status == Error) {
            // Not at once, because handlers may delete the loader.
            QMetaObject::invokeMethod(m_loader, &PageLoader::finishIncubation, Qt::QueuedConnection);
        }
    }

private:
    PageLoader *const m_loader;
};

PageLoader::PageLoader(QQmlEngine *engine, const QString &file, std::unique_ptr<SettingsEntry> entry,
                       const QSizeF &size)
    : m_size(size)
    , m_entry(entry.release())
    , m_component(engine)
{
    m_entry->setParent(this);
    connect(&m_component, &QQmlComponent::statusChanged, this, &PageLoader::load, Qt::QueuedConnection);
    m_component.loadUrl(QUrl::fromLocalFile(file), QQmlComponent::Asynchronous);
}

PageLoader::~PageLoader()
{
    takePage();
    deleteUnfinishedPage();
}

std::unique_ptr<QObject> PageLoader::takePage()
{
    std::unique_ptr<QObject> page;
    if (m_incubator && m_incubator->isReady()) {
        page.reset(m_incubator->object());
        m_incubator->clear();
    }
    return page;
}

QList<QQmlError> PageLoader::errors() const
{
    return m_component.errors() + (m_incubator ? m_incubator->errors() : QList<QQmlError>());
}

bool PageLoader::isItem(const QObject &page)
{
    return page.inherits("QQuickItem");
}

void PageLoader::resize(QObject *item, const QSizeF &size)
{
    item->setProperty("width", size.width());
    item->setProperty("height", size.height());
}

void PageLoader::load()
{
    if (m_component.isError()) {
        Q_EMIT finished();
    } else if (m_component.isReady() && !m_incubator) {
        create({{QLatin1String(EntryProperty), QVariant::fromValue(m_entry)}});
    }
}

void PageLoader::create(const QVariantMap &properties)
{
    m_incubator = std::make_unique<Incubator>(this);
    m_incubator->setInitialProperties(properties);
    m_component.create(*m_incubator);
}

void PageLoader::prepare(QObject *page)
{
    m_begun = page;
    m_hasEntry = page->metaObject()->indexOfProperty(EntryProperty) >= 0;
    if (m_hasEntry) {
        m_entry->setParent(page);
    }
    if (isItem(*page)) {
        resize(page, m_size);
    }
}

/// An incubator that is deleted keeps these pages.
void PageLoader::deleteUnfinishedPage()
{
    if (m_incubator && m_incubator->isError()) {
        delete m_begun;
    } else if (m_incubator) {
        m_incubator->clear();
    }
}

void PageLoader::finishIncubation()
{
    const bool isWithoutEntry = m_incubator->isError() && !std::exchange(m_hasEntry, true);
    if (isWithoutEntry && !std::exchange(m_isSecondTime, true)) {
        deleteUnfinishedPage();
        create({}); // the properties must all exist
    } else {
        Q_EMIT finished();
    }
}

#include "moc_pageloader.cpp"
