#pragma once
// The two enumerations the library side shares: what a library-tree node or
// a song-list load stands for, and which field a search or filter looks at.
// Their values are fixed; the iTunes wrapper maps LT_LIBRARY,
// LT_COLLECTION1 and LT_PLAYLISTS onto the agent's collections 0, 1 and 2.

#include <QMetaType>

// A fixed underlying type, so that any number (an unknown kind or field)
// is a valid value that simply matches nothing.
enum tagLibraryType : int
{
    LT_ROOT = 0,        // the invisible root of the library tree
    LT_LIBRARY = 1,     // the "Library" group and its playlists
    LT_COLLECTION1 = 2, // a third agent collection; no tree node is built with it
    LT_PLAYLISTS = 3,   // the "PlayList" group and its playlists
    LT_PLAYLIST = 4,    // one playlist, a leaf of the tree
    LT_SEARCH = 5       // the song list holds the hits of a search
};

enum FilterType : int
{
    FT_ALL = 0,
    FT_TITLE = 1,
    FT_ARTIST = 2,
    FT_ALBUM = 3
};

Q_DECLARE_METATYPE(tagLibraryType)
Q_DECLARE_METATYPE(FilterType)
