#pragma once
// The song list: a one-column table whose rows are the records the model
// owns (the hits of a search) followed by the songs of the agent playlist
// loaded last, which are never copied: each row is asked of the iTunes
// wrapper every time it is shown. Owns its records (deleted in
// clearRingTone and the destructor). GUI thread only; a search runs to its
// end inside Search().

#include "engine/ringtonenode.h"
#include "library/librarytypes.h"
#include "library/songsink.h"

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

private:
    // True when the library is still loading: the request then runs when
    // the load ends.
    bool putOffWhileLoading(std::function<void()> request);
    // The loaded playlist's song count as the wrapper gives it, never below 0.
    int songCount() const;

    QVector<CRingToneNode*> m_nodes;
    tagLibraryType m_type;
    int m_position;
    QIcon m_musicIcon;
    QIcon m_videoIcon;
};
