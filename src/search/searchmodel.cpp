// SPDX-FileCopyrightText: 2026 The libvelkasettings authors
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "search/searchmodel.h"

#include "common/roletable.h"
#include "registry/toqml.h"
#include "registry/treeitem.h"

#include <chrono>

using namespace std::chrono_literals;

namespace
{
constexpr auto ReleaseDelay = 60s;
constexpr int MaxMoves = 500; ///< in one change; with more, rows are removed and inserted

QVariantList toList(const QVector<TextRange> &ranges)
{
    QVariantList list;
    for (const TextRange &range : ranges) {
        list.append(QVariantMap{{QStringLiteral("start"), range.start}, {QStringLiteral("length"), range.length}});
    }
    return list;
}

QString fileOf(const SearchRow &row)
{
    return row.item ? row.item->fromFile() : QString();
}

using Roles = RoleTable<SearchModel, const SearchRow>;

const Roles &roles()
{
    using Model = SearchModel;
    using Row = const SearchRow;
    static const Roles s_roles{
        {Model::ObjectRole, "object",
         [](const Model &, Row &row) { return QVariant::fromValue(toQml(row.item)); }},
        {Model::TitleRole, "title", [](const Model &, Row &row) { return QVariant(row.result.title); }},
        {Model::TitleRangesRole, "titleRanges",
         [](const Model &model, Row &row) { return QVariant(toList(model.highlightsAt(row).titleRanges)); }},
        {Model::BreadcrumbRole, "breadcrumb",
         [](const Model &, Row &row) { return QVariant(row.result.breadcrumb); }},
        {Model::LocationRole, "location", [](const Model &, Row &row) { return QVariant(row.result.location); }},
        {Model::MatchedRole, "matched",
         [](const Model &model, Row &row) { return QVariant(model.highlightsAt(row).matched); }},
        {Model::MatchedRangesRole, "matchedRanges",
         [](const Model &model, Row &row) { return QVariant(toList(model.highlightsAt(row).matchedRanges)); }},
        {Model::KindRole, "kind", [](const Model &, Row &row) { return QVariant(row.result.kind); }},
        {Model::ScoreRole, "score", [](const Model &, Row &row) { return QVariant(row.result.score); }},
    };
    return s_roles;
}

/// Returns the roles that can be others in @p after, a row of the same location.
QVector<int> changedRoles(const SearchRow &before, const SearchRow &after)
{
    QVector<int> changed;
    const auto compare = [&changed](bool isSame, const QVector<int> &others) {
        changed += isSame ? QVector<int>() : others;
    };
    const bool isSameTitle = before.result.title == after.result.title;
    const bool isSameText = before.text == after.text && before.item == after.item;
    compare(before.item == after.item, {SearchModel::ObjectRole});
    compare(isSameTitle, {SearchModel::TitleRole});
    compare(isSameText && isSameTitle,
            {SearchModel::TitleRangesRole, SearchModel::MatchedRole, SearchModel::MatchedRangesRole});
    compare(before.result.breadcrumb == after.result.breadcrumb, {SearchModel::BreadcrumbRole});
    compare(before.result.kind == after.result.kind, {SearchModel::KindRole});
    compare(before.result.score == after.result.score, {SearchModel::ScoreRole});
    return changed;
}

QStringList locationsOf(const QVector<SearchRow> &rows)
{
    QStringList locations;
    for (const SearchRow &row : rows) {
        locations.append(row.result.location);
    }
    return locations;
}
}

SearchModel::SearchModel(QObject *parent)
    : DifferenceListModel(parent)
    , m_changes(this, [this] { search(); })
    , m_release(this)
{
    m_release.setSingleShot(true);
    m_release.setInterval(ReleaseDelay);
    connect(&m_release, &QTimer::timeout, this, &SearchModel::release);
    connect(&m_search, &SettingsSearch::busyChanged, this, &SearchModel::followBusy);
}

QString SearchModel::text() const
{
    return m_query.text;
}

void SearchModel::setText(const QString &text)
{
    set(&m_query.text, text, &SearchModel::textChanged);
}

QStringList SearchModel::path() const
{
    return m_query.path;
}

void SearchModel::setPath(const QStringList &path)
{
    set(&m_query.path, path, &SearchModel::pathChanged);
}

QStringList SearchModel::types() const
{
    return m_query.types;
}

void SearchModel::setTypes(const QStringList &types)
{
    set(&m_query.types, types, &SearchModel::typesChanged);
}

bool SearchModel::isStrict() const
{
    return m_query.isStrict;
}

void SearchModel::setStrict(bool isStrict)
{
    set(&m_query.isStrict, isStrict, &SearchModel::strictChanged);
}

int SearchModel::limit() const
{
    return m_query.limit;
}

void SearchModel::setLimit(int limit)
{
    set(&m_query.limit, limit, &SearchModel::limitChanged);
}

int SearchModel::count() const
{
    return m_rows.size();
}

bool SearchModel::isBusy() const
{
    return m_isBusy;
}

QVariant SearchModel::data(const QModelIndex &index, int role) const
{
    const bool isRow = index.row() >= 0 && index.row() < m_rows.size();
    return isRow ? roles().read(role, *this, m_rows.at(index.row())) : QVariant();
}

QHash<int, QByteArray> SearchModel::roleNames() const
{
    return roles().names();
}

void SearchModel::classBegin()
{
    m_isComplete = false;
}

void SearchModel::componentComplete()
{
    m_isComplete = true;
    search();
}

template<typename T>
void SearchModel::set(T *value, const T &newValue, Signal changed)
{
    if (*value == newValue) {
        return;
    }
    *value = newValue;
    const QPointer<SearchModel> self(this);
    search();
    if (self) {
        Q_EMIT(this->*changed)();
    }
}

/// Makes the rows the results of the query.
void SearchModel::search()
{
    if (!m_isComplete) {
        return;
    }
    const int before = m_rows.size();
    const QPointer<SearchModel> self(this);
    m_changes.run([this] { applyResults(); },
                  [this, before] {
                      if (m_rows.size() != before) {
                          Q_EMIT countChanged();
                      }
                  });
    if (self) {
        updateBusy();
    }
}

void SearchModel::updateBusy()
{
    if (m_isBusy != m_search.isBusy()) {
        m_isBusy = !m_isBusy;
        Q_EMIT busyChanged();
    }
}

/// Deletes the index, also one that is still being read.
void SearchModel::release()
{
    m_search.release();
    updateBusy();
}

void SearchModel::applyResults()
{
    const QVector<SearchRow> found = findRows();
    ListDifference difference = differenceOf(locationsOf(m_rows), locationsOf(found), MaxMoves);
    if (difference.hasTooManyMoves) {
        beginResetModel();
        m_rows = found;
        endResetModel();
        return;
    }
    const QVector<Update> updates = replaceRows(difference.origins, found);
    QVector<Rows> inserted;
    for (const ListDifference::Range &range : qAsConst(difference.insertions)) {
        inserted.append(found.mid(range.first, range.last - range.first + 1));
    }
    announce(difference, updates, inserted);
}

/// An empty text needs no index.
QVector<SearchRow> SearchModel::findRows()
{
    if (m_query.text.trimmed().isEmpty()) {
        m_release.start();
        return {};
    }
    m_release.stop();
    QVector<SearchRow> rows;
    QVector<SearchResult> results = m_search.find(m_query);
    for (SearchResult &result : results) {
        const QPointer<TreeItem> item(result.item);
        result.item = nullptr;
        rows.append({result, item, m_query.text, {}});
    }
    return rows;
}

/// Brings the rows that stay up to date. Returns what has changed in them.
QVector<SearchModel::Update> SearchModel::replaceRows(const QVector<int> &origins, const QVector<SearchRow> &found)
{
    QVector<Update> updates;
    for (int row = 0; row < found.size(); ++row) {
        const int origin = origins.at(row);
        if (origin < 0) {
            continue;
        }
        const QVector<int> changed = changedRoles(m_rows.at(origin), found.at(row));
        m_rows[origin] = found.at(row);
        if (!changed.isEmpty()) {
            updates.append({origin, changed});
        }
    }
    return updates;
}

/// Reads the highlights of @p row together with those of the others from its file, which is parsed for that.
const SearchHighlights &SearchModel::highlightsAt(const SearchRow &row) const
{
    if (row.highlights) {
        return *row.highlights;
    }
    QVector<const SearchRow *> rows;
    QVector<SearchResult> results;
    for (const SearchRow &other : m_rows) {
        if (!other.highlights && other.text == row.text && fileOf(other) == fileOf(row)) {
            rows.append(&other);
            results.append(other.result);
            results.last().item = other.item;
        }
    }
    const QVector<SearchHighlights> highlights = SettingsSearch::highlightsOf(results, row.text);
    for (int i = 0; i < rows.size(); ++i) {
        rows.at(i)->highlights = highlights.at(i);
    }
    return *row.highlights;
}

/// The rows follow when all is read, so that they do not change while files are.
void SearchModel::followBusy()
{
    if (!m_search.isBusy()) {
        search();
    } else if (!m_isBusy) {
        m_isBusy = true;
        Q_EMIT busyChanged();
    }
}

#include "moc_searchmodel.cpp"
