#pragma once
// The library tree behind the left-hand pane: an invisible root ("ITunes")
// with the groups "Library" and "PlayList", each holding the agent's
// playlists of its collection. Owns the whole tree through its root node.
// GUI thread only. loadLibrary() rebuilds the tree; call it before a view is
// attached, since the rebuild announces only the removal of row 0. While the
// library loads on its worker thread the tree holds one "Loading library…"
// row and refills itself (with a model reset) when the load ends. Captions
// are translated as they are shown, so a language change shows at once.

#include "library/librarynode.h"

#include <QAbstractItemModel>

class CLibraryModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit CLibraryModel(QObject* parent = nullptr);
    ~CLibraryModel() override;

    void loadLibrary();

    QModelIndex index(int row, int column,
                      const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    CLibraryNode* nodeFromIndex(const QModelIndex& index) const;
    // The captions in the current language: the group captions, and the
    // built-in playlists while they have the names the library gave them in
    // English (a playlist the user named keeps its name).
    static QString displayCaption(const CLibraryNode* node);
    // Tells the views that every caption may read differently now.
    void retranslate();

private:
    // Builds the tree under a fresh root (or the loading row).
    void buildTree();
    // Replaces the loading row by the loaded library.
    void refill();

    CLibraryNode* m_root; // null until loadLibrary()
    bool m_loading;       // the tree is the loading row
};
