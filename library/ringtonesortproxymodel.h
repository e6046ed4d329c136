#pragma once
// Sits between the song list model and its view and hides the rows whose
// record does not contain the filter text (case-insensitively) in the chosen
// field. Its source is a CRingToneModel; testing an agent row asks the agent
// for that row. Sorting by the shown text compares the titles the model
// keeps, the way QSortFilterProxyModel compares the shown texts, so that a
// sort never asks the agent. GUI thread only; owns nothing.

#include "library/librarytypes.h"

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QString>

class CRingToneModel;
class CRingToneNode;

class CRingToneSortProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit CRingToneSortProxyModel(QObject* parent = nullptr);

public slots:
    // Stores text and field and tests every row again.
    void filter(QString filterText, FilterType filterType);

protected:
    bool filterAcceptsRow(int source_row, const QModelIndex& source_parent) const override;
    bool lessThan(const QModelIndex& source_left, const QModelIndex& source_right) const override;

private:
    bool matches(const CRingToneNode& node, FilterType field) const;

    QString strFilter;
    FilterType type;
    // The source as a song list, or null for any other source; set when the
    // source is, so that no comparison has to cast it.
    QPointer<const CRingToneModel> m_songs;
};
