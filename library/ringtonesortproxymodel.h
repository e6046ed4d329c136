#pragma once
// Sits between the song list model and its view and hides the rows whose
// record does not contain the filter text (case-insensitively) in the chosen
// field. Its source is a CRingToneModel; testing an agent row asks the agent
// for that row. A sort by the shown text is handed to the song list, which
// keeps its rows in that order itself (the base class then keeps the
// source's order): the rows come in the order the base class would sort
// them, without a comparison a row. Any other sort, or another source, is
// the base class's. GUI thread only; owns nothing.

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

    // Column 0 by the shown text: the song list sorts itself, and the base
    // class's sortColumn() says -1 (the source's order).
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

public slots:
    // Stores text and field and tests every row again.
    void filter(QString filterText, FilterType filterType);

protected:
    bool filterAcceptsRow(int source_row, const QModelIndex& source_parent) const override;

private:
    bool matches(const CRingToneNode& node, FilterType field) const;
    // Hands the sort asked for to the song list, or to the base class.
    void applySort();

    QString strFilter;
    FilterType type;
    // The source as a song list, or null for any other source; set when the
    // source is, so that no row test has to cast it.
    QPointer<CRingToneModel> m_songs;
    // The sort asked for last (the base class's sortColumn() may say -1).
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};
