#pragma once
// One node of the library tree: the invisible root, a group caption
// ("Library", "PlayList") or a playlist. A node owns its children and
// deletes them with itself; its parent pointer is not owning. Plain class,
// GUI thread only.

#include "library/librarytypes.h"

#include <QIcon>
#include <QList>
#include <QString>

class CLibraryNode
{
public:
    CLibraryNode(tagLibraryType nodeType, const QString& nodeCaption);
    ~CLibraryNode();
    CLibraryNode(const CLibraryNode&) = delete;
    CLibraryNode& operator=(const CLibraryNode&) = delete;

    // Appends the child and makes this node its parent.
    void addChild(CLibraryNode* node);
    CLibraryNode* child(int row) const;
    int getChildNum() const;

    // Position of the playlist within its agent collection; filled by the
    // iTunes wrapper for playlist nodes only.
    int position;
    CLibraryNode* parent;
    QList<CLibraryNode*> children;
    QString caption;
    tagLibraryType type;
    QIcon icon;
};
