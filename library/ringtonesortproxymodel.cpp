#include "library/ringtonesortproxymodel.h"

#include "engine/ringtonenode.h"
#include "library/ringtonemodel.h"

CRingToneSortProxyModel::CRingToneSortProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent), type(FT_ALL)
{
    connect(this, &QAbstractProxyModel::sourceModelChanged, this,
            [this] { m_songs = qobject_cast<const CRingToneModel*>(sourceModel()); });
}

void CRingToneSortProxyModel::filter(QString filterText, FilterType filterType)
{
    strFilter = filterText;
    type = filterType;
    invalidateFilter();
}

bool CRingToneSortProxyModel::matches(const CRingToneNode& node, FilterType field) const
{
    switch (field) {
    case FT_TITLE:
        return node.strTitle.contains(strFilter, Qt::CaseInsensitive);
    case FT_ARTIST:
        return node.strArtist.contains(strFilter, Qt::CaseInsensitive);
    case FT_ALBUM:
        return node.strAlbum.contains(strFilter, Qt::CaseInsensitive);
    default:
        return false;
    }
}

bool CRingToneSortProxyModel::filterAcceptsRow(int source_row,
                                               const QModelIndex& source_parent) const
{
    // No record is built while there is nothing to filter by.
    if (strFilter.isEmpty())
        return true;
    const CRingToneModel* songs = m_songs;
    if (!songs)
        return true;
    const CRingToneNode node = songs->nodeFromIndex(songs->index(source_row, 0, source_parent));
    if (type != FT_ALL)
        return matches(node, type);
    return matches(node, FT_TITLE) || matches(node, FT_ARTIST) || matches(node, FT_ALBUM);
}

bool CRingToneSortProxyModel::lessThan(const QModelIndex& source_left,
                                       const QModelIndex& source_right) const
{
    // The shown text of a song list row is its title: compared here as the
    // base class compares two texts, without building the rows' records.
    const CRingToneModel* songs = m_songs;
    if (!songs || sortRole() != Qt::DisplayRole || !source_left.isValid() ||
        !source_right.isValid())
        return QSortFilterProxyModel::lessThan(source_left, source_right);
    const int left = source_left.row();
    const int right = source_right.row();
    if (isSortLocaleAware())
        return songs->title(left).localeAwareCompare(songs->title(right)) < 0;
    return songs->compareTitles(left, right, sortCaseSensitivity()) < 0;
}
