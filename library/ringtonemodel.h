#pragma once
// The song list: a one-column table whose rows are the records the model
// owns (the hits of a search) followed by the songs of the agent playlist
// loaded last, whose records are never copied: each row is asked of the
// iTunes wrapper every time it is shown. Only the playlist's song count and
// titles are kept, read once when its rows are added, so that counting and
// sorting the rows never asks the agent. When a sort by title is asked for
// (setTitleOrder), the model keeps its rows in that order itself: a sort
// over half a million rows then costs one radix sort of the titles' keys,
// not one proxy comparison after another. Owns its records (deleted in
// clearRingTone and the destructor). GUI thread only; a search runs to its
// end inside Search().

#include "engine/ringtonenode.h"
#include "library/librarytypes.h"
#include "library/songsink.h"
#include "library/titlesortkeys.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <QVector>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The size every row asks for (Qt::SizeHintRole).
inline constexpr int kSongRowWidth = 50;
inline constexpr int kSongRowHeight = 20;

class CRingToneModel : public QAbstractTableModel, public ISongSink
{
    Q_OBJECT

public:
    explicit CRingToneModel(QObject* parent = nullptr);
    ~CRingToneModel() override;

    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // Shows the songs of one playlist of a group (LT_LIBRARY or LT_PLAYLISTS).
    void load(tagLibraryType type, int position);
    // Appends a copy as an owned row, after the earlier owned rows and before
    // the playlist's songs (in title order while sorted).
    bool addRingTone(const CRingToneNode& node) override;
    // Removes every row and deletes the owned records; type and position stay.
    void clearRingTone();
    // Replaces the rows with the hits of a library-wide search.
    void Search(QString text, FilterType type);
    // The record of a row (a default record for an invalid index).
    CRingToneNode nodeFromIndex(const QModelIndex& index) const;
    // The title a row shows, without asking the agent: an owned record's, or
    // the playlist song's as read when the rows were added. Empty past the
    // last row.
    QString title(int row) const;

    // With `sorted`, keeps the rows from now on in the order in which
    // QSortFilterProxyModel shows them sorted by their shown text with
    // these settings: by title, ties in the unsorted order (owned records
    // first, then the playlist's songs). Without, the rows come in the
    // unsorted order again. A change moves the rows as a layout change.
    void setTitleOrder(bool sorted, Qt::SortOrder order, Qt::CaseSensitivity cs, bool localeAware);

private:
    struct TitleOrder
    {
        bool sorted = false;
        Qt::SortOrder order = Qt::AscendingOrder;
        Qt::CaseSensitivity cs = Qt::CaseInsensitive;
        bool localeAware = false;
    };

    // True when the library is still loading: the request then runs when
    // the load ends.
    bool putOffWhileLoading(std::function<void()> request);
    // Forgets the playlist's songs without announcing it.
    void forgetSongs();

    // A row's entry: a song's number in the playlist, or ~i for owned record i.
    int entryAt(int row) const;
    // The unsorted row of an entry.
    int unsortedRow(int entry) const;
    QString titleOf(int entry) const;
    std::string_view keyOf(int entry) const;
    // -1, 0 or 1 as an entry's title sorts against another title: by the
    // other's key when sorting without regard to case and not by locale,
    // else by the title itself; turned round when descending.
    int compareWith(int entry, std::string_view key, const QString& title) const;
    // Every entry, in the sorted order.
    std::vector<int> sortedEntries() const;
    // Keys compare as the titles do: without regard to case, not by locale.
    bool sortsByKey() const;

    QVector<CRingToneNode*> m_nodes;
    tagLibraryType m_type;
    int m_position;
    // The loaded playlist's song count (never below 0) and titles, kept when
    // the list is cleared: type and position stay too.
    int m_songCount;
    CTitleSortKeys m_titles;
    // The owned records' title keys, in their order.
    std::vector<std::string> m_ownedKeys;
    TitleOrder m_titleOrder;
    // While sorted: the entry of each row, in the order shown.
    std::vector<int> m_order;
    QIcon m_musicIcon;
    QIcon m_videoIcon;
};
