#pragma once
// A ready item delegate with a fixed size hint (30 x 20) for every item. No
// view installs it today. Owns nothing; GUI thread only.

#include <QStyledItemDelegate>

class CListItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CListItemDelegate(QObject* parent = nullptr);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
