#pragma once
// The song list: a one-column table whose rows are the records the model
// owns (the hits of a search) followed by the songs of the agent playlist
// loaded last, whose records are never copied: each row is asked of the
// iTunes wrapper every time it is shown. Only the playlist's song count and
// titles are kept, read once when its rows are added, so that counting and
// sorting the rows never asks the agent. Owns its records (deleted in clearRingTone
// and the destructor). GUI thread only; a search runs to its end inside
// Search().

#include "engine/ringtonenode.h"
#include "library/librarytypes.h"
#include "library/songsink.h"
#include "library/titlesortkeys.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <QVector>

#include <functional>

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
    // the playlist's songs.
    bool addRingTone(const CRingToneNode& node) override;
    // Removes every row and deletes the owned records; type and position stay.
    void clearRingTone();
    // Replaces the rows with the hits of a library-wide search.
    void Search(QString text, FilterType type);
    // The record of a row (a default record for an invalid index).
    CRingToneNode nodeFromIndex(const QModelIndex& index) const;
    // The title a row shows, without asking the agent: an owned record's, or
    // the playlist song's as read when the rows were added. Empty past the
    // last row. Valid until the rows change.
    const QString& title(int row) const;
    // Negative, zero or positive as QString::compare(title(left),
    // title(right), cs), quicker between two songs of the playlist.
    int compareTitles(int left, int right, Qt::CaseSensitivity cs) const;

private:
    // True when the library is still loading: the request then runs when
    // the load ends.
    bool putOffWhileLoading(std::function<void()> request);
    // Forgets the playlist's songs without announcing it.
    void forgetSongs();

    QVector<CRingToneNode*> m_nodes;
    tagLibraryType m_type;
    int m_position;
    // The loaded playlist's song count (never below 0) and titles, kept when
    // the list is cleared: type and position stay too.
    int m_songCount;
    CTitleSortKeys m_titles;
    QIcon m_musicIcon;
    QIcon m_videoIcon;
};
