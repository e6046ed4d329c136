#include "library/songlistview.h"

#include <QListView>

void setUpSongListView(QListView* view)
{
    view->setResizeMode(QListView::Fixed);
    view->setUniformItemSizes(true);
}
