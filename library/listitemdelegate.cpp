#include "library/listitemdelegate.h"

CListItemDelegate::CListItemDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QSize CListItemDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return QSize(30, 20);
}
