#pragma once
// How a list view shows the song list, so that a playlist of half a million
// songs is laid out without asking the model for each row's size: a fixed
// layout, one row size for all (the one the model gives), on a grid of that
// size. The rows are laid out in one pass: a batched layout paints no row
// of a one-column list until its last batch is done. The caller owns the
// view; GUI thread.

class QListView;

void setUpSongListView(QListView* view);
