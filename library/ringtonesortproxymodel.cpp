#include "library/ringtonesortproxymodel.h"

#include "engine/ringtonenode.h"
#include "library/ringtonemodel.h"

CRingToneSortProxyModel::CRingToneSortProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent), type(FT_ALL)
{
    connect(this, &QAbstractProxyModel::sourceModelChanged, this, [this] {
        // A song list left behind goes back to its own order.
        CRingToneModel* songs = qobject_cast<CRingToneModel*>(sourceModel());
        if (m_songs && m_songs != songs)
            m_songs->setTitleOrder(false, Qt::AscendingOrder, Qt::CaseInsensitive, false);
        m_songs = songs;
        applySort();
    });
    connect(this, &QSortFilterProxyModel::sortCaseSensitivityChanged, this,
            &CRingToneSortProxyModel::applySort);
    connect(this, &QSortFilterProxyModel::sortLocaleAwareChanged, this,
            &CRingToneSortProxyModel::applySort);
    connect(this, &QSortFilterProxyModel::sortRoleChanged, this,
            &CRingToneSortProxyModel::applySort);
}

void CRingToneSortProxyModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column;
    m_sortOrder = order;
    applySort();
}

void CRingToneSortProxyModel::applySort()
{
    CRingToneModel* songs = m_songs;
    if (songs && sortRole() == Qt::DisplayRole) {
        songs->setTitleOrder(m_sortColumn == 0, m_sortOrder, sortCaseSensitivity(),
                             isSortLocaleAware());
        QSortFilterProxyModel::sort(-1, m_sortOrder);
        return;
    }
    if (songs)
        songs->setTitleOrder(false, m_sortOrder, sortCaseSensitivity(), isSortLocaleAware());
    QSortFilterProxyModel::sort(m_sortColumn, m_sortOrder);
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
