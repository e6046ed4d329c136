#include "library/songlistview.h"

#include "library/ringtonemodel.h"

#include <QListView>
#include <QSize>

void setUpSongListView(QListView* view)
{
    view->setResizeMode(QListView::Fixed);
    view->setUniformItemSizes(true);
    // Rows stacked on a grid of the one row size: the same places, without
    // asking the model each row's size while laying them out.
    view->setGridSize(QSize(kSongRowWidth, kSongRowHeight));
}
