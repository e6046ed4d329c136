#include "library/ringtonemodel.h"

#include "library/ItunesWrap.h"
#include "library/libraryloader.h"

#include <QSize>

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
        return QSize(50, 20);
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
    // Counted before the insertion is announced, as the rows always were.
    m_songCount = count;
    m_titles.assign(wrapper->getSongTitles(type, position));
    // Announced even for an empty playlist (rows 0 .. -1).
    beginInsertRows(QModelIndex(), 0, count - 1);
    endInsertRows();
}

bool CRingToneModel::addRingTone(const CRingToneNode& node)
{
    const int row = static_cast<int>(m_nodes.size());
    auto* copy = new CRingToneNode(node);
    beginInsertRows(QModelIndex(), row, row);
    m_nodes.append(copy);
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
    const int owned = static_cast<int>(m_nodes.size());
    if (index.row() >= owned)
        CItunesWraper::instance()->getSongInfo(m_type, m_position, index.row() - owned, &node);
    else
        node = *m_nodes.at(index.row());
    return node;
}

const QString& CRingToneModel::title(int row) const
{
    static const QString none;
    const int owned = static_cast<int>(m_nodes.size());
    if (row < 0 || row >= owned + m_titles.size())
        return none;
    return row < owned ? m_nodes.at(row)->strTitle : m_titles.title(row - owned);
}

int CRingToneModel::compareTitles(int left, int right, Qt::CaseSensitivity cs) const
{
    const int owned = static_cast<int>(m_nodes.size());
    const int songs = m_titles.size();
    if (cs == Qt::CaseInsensitive && left >= owned && right >= owned && left < owned + songs &&
        right < owned + songs)
        return m_titles.compareCaseInsensitive(left - owned, right - owned);
    return QString::compare(title(left), title(right), cs);
}
