#include "library/librarynode.h"

CLibraryNode::CLibraryNode(tagLibraryType nodeType, const QString& nodeCaption)
    : position(0), parent(nullptr), caption(nodeCaption), type(nodeType)
{
}

CLibraryNode::~CLibraryNode()
{
    while (!children.isEmpty())
        delete children.takeFirst();
    children.clear();
}

void CLibraryNode::addChild(CLibraryNode* node)
{
    children.append(node);
    node->parent = this;
}

CLibraryNode* CLibraryNode::child(int row) const
{
    return children.value(row, nullptr);
}

int CLibraryNode::getChildNum() const
{
    return static_cast<int>(children.size());
}
