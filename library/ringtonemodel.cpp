#include "library/ringtonemodel.h"

#include "library/ItunesWrap.h"
#include "library/keyorder.h"
#include "library/libraryloader.h"

#include <QSize>

#include <algorithm>

CRingToneModel::CRingToneModel(QObject* parent)
    : QAbstractTableModel(parent), m_type(LT_ROOT), m_position(0), m_songCount(0),
      m_musicIcon(":/li/f_music"), m_videoIcon(":/li/f_video")
{
}

CRingToneModel::~CRingToneModel()
{
    qDeleteAll(m_nodes);
}

bool CRingToneModel::putOffWhileLoading(std::function<void()> request)
{
    // While the library loads, a request is answered when the load ends.
    CLibraryLoader* loader = CLibraryLoader::instance();
    if (!loader->isLoading())
        return false;
    loader->whenLoaded(this, std::move(request));
    return true;
}

void CRingToneModel::forgetSongs()
{
    m_songCount = 0;
    m_titles.clear();
    m_order.erase(std::remove_if(m_order.begin(), m_order.end(), [](int e) { return e >= 0; }),
                  m_order.end());
}

int CRingToneModel::columnCount(const QModelIndex&) const
{
    return 1;
}

int CRingToneModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return m_songCount + static_cast<int>(m_nodes.size());
}

QVariant CRingToneModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    // Answered before any record is built, also for rows past the end.
    if (role == Qt::SizeHintRole)
        return QSize(kSongRowWidth, kSongRowHeight);
    // Only these roles need the record; every agent row costs a query.
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::DecorationRole)
        return QVariant();
    const CRingToneNode node = nodeFromIndex(index);
    if (role == Qt::DecorationRole)
        return node.bVideo ? m_videoIcon : m_musicIcon;
    return node.strTitle;
}

void CRingToneModel::load(tagLibraryType type, int position)
{
    if (putOffWhileLoading([this, type, position] { load(type, position); }))
        return;
    clearRingTone();
    m_type = type;
    m_position = position;
    forgetSongs();
    CItunesWraper* wrapper = CItunesWraper::instance();
    const int count = wrapper->getSongCount(type, position);
    if (count < 0)
        return;
    // Counted and ordered before the insertion is announced, as the rows
    // always were counted.
    m_songCount = count;
    m_titles.assignUtf8(wrapper->getSongTitles(type, position));
    if (m_titleOrder.sorted)
        m_order = sortedEntries();
    // Announced even for an empty playlist (rows 0 .. -1).
    beginInsertRows(QModelIndex(), 0, count - 1);
    endInsertRows();
}

bool CRingToneModel::addRingTone(const CRingToneNode& node)
{
    const int owned = static_cast<int>(m_nodes.size());
    auto* copy = new CRingToneNode(node);
    std::string key = CTitleSortKeys::keyOf(copy->strTitle);
    int row = owned;
    if (m_titleOrder.sorted) {
        // After the rows of smaller titles, and after the earlier owned
        // records of an equal one but before the songs.
        auto comesFirst = [&](int entry) {
            const int order = compareWith(entry, key, copy->strTitle);
            return order < 0 || (order == 0 && entry < 0);
        };
        row = static_cast<int>(std::partition_point(m_order.begin(), m_order.end(), comesFirst) -
                               m_order.begin());
    }
    beginInsertRows(QModelIndex(), row, row);
    m_nodes.append(copy);
    m_ownedKeys.push_back(std::move(key));
    if (m_titleOrder.sorted)
        m_order.insert(m_order.begin() + row, ~owned);
    endInsertRows();
    return true;
}

void CRingToneModel::clearRingTone()
{
    const int total = m_songCount + static_cast<int>(m_nodes.size());
    // One row past the last is announced on purpose: the removal has always
    // named the count itself as its last row. Proxies and views clamp it.
    beginRemoveRows(QModelIndex(), 0, total);
    qDeleteAll(m_nodes);
    m_nodes.clear();
    m_ownedKeys.clear();
    m_order.erase(std::remove_if(m_order.begin(), m_order.end(), [](int e) { return e < 0; }),
                  m_order.end());
    endRemoveRows();
}

void CRingToneModel::Search(QString text, FilterType type)
{
    if (putOffWhileLoading([this, text, type] { Search(text, type); }))
        return;
    clearRingTone();
    // From here on the agent contributes no rows: every row is an owned hit.
    m_type = LT_SEARCH;
    m_position = -1;
    forgetSongs();
    CItunesWraper::instance()->SearchSong(text, type, this);
}

CRingToneNode CRingToneModel::nodeFromIndex(const QModelIndex& index) const
{
    CRingToneNode node;
    if (!index.isValid())
        return node;
    const int entry = entryAt(index.row());
    if (entry >= 0)
        CItunesWraper::instance()->getSongInfo(m_type, m_position, entry, &node);
    else
        node = *m_nodes.at(~entry);
    return node;
}

QString CRingToneModel::title(int row) const
{
    if (row < 0 || row >= rowCount())
        return QString();
    return titleOf(entryAt(row));
}

// --- the order by title -----------------------------------------------------

int CRingToneModel::entryAt(int row) const
{
    if (m_titleOrder.sorted && static_cast<size_t>(row) < m_order.size())
        return m_order[static_cast<size_t>(row)];
    // Past the last row too: such a row is asked of the agent, which refuses it.
    const int owned = static_cast<int>(m_nodes.size());
    return row < owned ? ~row : row - owned;
}

int CRingToneModel::unsortedRow(int entry) const
{
    return entry < 0 ? ~entry : static_cast<int>(m_nodes.size()) + entry;
}

QString CRingToneModel::titleOf(int entry) const
{
    if (entry < 0)
        return m_nodes.at(~entry)->strTitle;
    return entry < m_titles.size() ? m_titles.title(entry) : QString();
}

std::string_view CRingToneModel::keyOf(int entry) const
{
    if (entry < 0)
        return m_ownedKeys[static_cast<size_t>(~entry)];
    return entry < m_titles.size() ? m_titles.key(entry) : std::string_view();
}

bool CRingToneModel::sortsByKey() const
{
    return m_titleOrder.cs == Qt::CaseInsensitive && !m_titleOrder.localeAware;
}

int CRingToneModel::compareWith(int entry, std::string_view key, const QString& title) const
{
    int order;
    if (sortsByKey())
        order = keyOf(entry).compare(key);
    else if (m_titleOrder.localeAware)
        order = titleOf(entry).localeAwareCompare(title);
    else
        order = QString::compare(titleOf(entry), title, m_titleOrder.cs);
    order = (order > 0) - (order < 0);
    return m_titleOrder.order == Qt::DescendingOrder ? -order : order;
}

std::vector<int> CRingToneModel::sortedEntries() const
{
    const int owned = static_cast<int>(m_nodes.size());
    std::vector<int> entries;
    entries.reserve(static_cast<size_t>(owned + m_songCount));
    for (int i = 0; i < owned; ++i)
        entries.push_back(~i);
    for (int song = 0; song < m_songCount; ++song)
        entries.push_back(song);
    if (!sortsByKey()) {
        // Equal titles stay in the unsorted order, either way.
        std::sort(entries.begin(), entries.end(), [this](int a, int b) {
            const int order = compareWith(a, std::string_view(), titleOf(b));
            return order != 0 ? order < 0 : unsortedRow(a) < unsortedRow(b);
        });
        return entries;
    }
    std::vector<std::string_view> keys;
    keys.reserve(entries.size());
    for (const int entry : entries)
        keys.push_back(keyOf(entry));
    const std::vector<uint32_t> ascending = orderOfKeys(keys);
    std::vector<int> sorted;
    sorted.reserve(entries.size());
    if (m_titleOrder.order == Qt::AscendingOrder) {
        for (const uint32_t at : ascending)
            sorted.push_back(entries[at]);
        return sorted;
    }
    // Descending: the runs of equal keys from the last, each run in its own
    // (unsorted) order.
    for (size_t end = ascending.size(); end > 0;) {
        size_t start = end - 1;
        while (start > 0 && keys[ascending[start - 1]] == keys[ascending[end - 1]])
            --start;
        for (size_t i = start; i < end; ++i)
            sorted.push_back(entries[ascending[i]]);
        end = start;
    }
    return sorted;
}

void CRingToneModel::setTitleOrder(bool sorted, Qt::SortOrder order, Qt::CaseSensitivity cs,
                                   bool localeAware)
{
    const TitleOrder wanted{sorted, order, cs, localeAware};
    const TitleOrder& now = m_titleOrder;
    if (wanted.sorted == now.sorted &&
        (!sorted || (wanted.order == now.order && wanted.cs == now.cs &&
                     wanted.localeAware == now.localeAware))) {
        m_titleOrder = wanted;
        return;
    }
    const int rows = rowCount();
    if (rows == 0) {
        m_titleOrder = wanted;
        m_order = sorted ? sortedEntries() : std::vector<int>();
        return;
    }
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> before(static_cast<size_t>(rows));
    for (int row = 0; row < rows; ++row)
        before[static_cast<size_t>(row)] = entryAt(row);
    m_titleOrder = wanted;
    m_order = sorted ? sortedEntries() : std::vector<int>();
    // Where each unsorted row shows now.
    std::vector<int> rowNow(static_cast<size_t>(rows));
    for (int row = 0; row < rows; ++row)
        rowNow[static_cast<size_t>(unsortedRow(entryAt(row)))] = row;
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& index : from) {
        const int was = before[static_cast<size_t>(index.row())];
        to << createIndex(rowNow[static_cast<size_t>(unsortedRow(was))], index.column());
    }
    changePersistentIndexList(from, to);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
