#include "library/librarymodel.h"

#include "library/ItunesWrap.h"
#include "library/libraryloader.h"

#include <QFont>
#include <QIcon>

CLibraryModel::CLibraryModel(QObject* parent)
    : QAbstractItemModel(parent), m_root(nullptr), m_loading(false)
{
}

CLibraryModel::~CLibraryModel()
{
    delete m_root;
}

void CLibraryModel::loadLibrary()
{
    // Only row 0 is announced as removed and no insertion follows: views
    // learn of the new tree through this notice and their next queries.
    beginRemoveRows(QModelIndex(), 0, 0);
    delete m_root;
    m_root = nullptr;
    endRemoveRows();
    buildTree();
}

void CLibraryModel::refill()
{
    // The tree a view already shows is replaced: a reset tells it so.
    beginResetModel();
    delete m_root;
    m_root = nullptr;
    buildTree();
    endResetModel();
}

void CLibraryModel::buildTree()
{
    m_root = new CLibraryNode(LT_ROOT, tr("ITunes"));
    // While the library loads, one row says so; the tree fills itself when
    // the load ends.
    CLibraryLoader* loader = CLibraryLoader::instance();
    m_loading = loader->isLoading();
    if (m_loading) {
        m_root->addChild(new CLibraryNode(LT_ROOT, tr("Loading library…")));
        loader->whenLoaded(this, [this] { refill(); });
        return;
    }

    CItunesWraper* wrapper = CItunesWraper::instance();
    auto* library = new CLibraryNode(LT_LIBRARY, tr("Library"));
    m_root->addChild(library);
    const int libraryCount = wrapper->getPlaylistCount(LT_LIBRARY);
    for (int i = 0; i < libraryCount; ++i) {
        auto* node = new CLibraryNode(LT_PLAYLIST, QString());
        if (wrapper->getPlaylistNode(LT_LIBRARY, i, node) == 0)
            library->addChild(node);
        else
            delete node;
    }

    auto* playlists = new CLibraryNode(LT_PLAYLISTS, tr("PlayList"));
    m_root->addChild(playlists);
    const int playlistCount = wrapper->getPlaylistCount(LT_PLAYLISTS);
    for (int i = 0; i < playlistCount; ++i) {
        auto* node = new CLibraryNode(LT_PLAYLIST, QString());
        // Tested differently from the loop above ("not negative" against
        // "equal to 0"); with the results 0, -1 and -2 both keep the same nodes.
        if (wrapper->getPlaylistNode(LT_PLAYLISTS, i, node) >= 0)
            playlists->addChild(node);
        else
            delete node;
    }
}

CLibraryNode* CLibraryModel::nodeFromIndex(const QModelIndex& index) const
{
    return static_cast<CLibraryNode*>(index.internalPointer());
}

QModelIndex CLibraryModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    CLibraryNode* parentNode = parent.isValid() ? nodeFromIndex(parent) : m_root;
    if (!parentNode)
        return QModelIndex();
    CLibraryNode* child = parentNode->child(row);
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex CLibraryModel::parent(const QModelIndex& index) const
{
    if (!index.isValid())
        return QModelIndex();
    CLibraryNode* node = nodeFromIndex(index);
    if (!node || !node->parent || node->parent == m_root)
        return QModelIndex();
    // The child's own row and column, deliberately: views only need the
    // carried node to walk upwards.
    return createIndex(index.row(), index.column(), node->parent);
}

int CLibraryModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid()) {
        const CLibraryNode* node = nodeFromIndex(parent);
        return node ? node->getChildNum() : 0;
    }
    return m_root ? m_root->getChildNum() : 0;
}

int CLibraryModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant CLibraryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const CLibraryNode* node = nodeFromIndex(index);
    if (!node)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return displayCaption(node);
    case Qt::DecorationRole:
        return node->icon.isNull() ? QIcon() : node->icon;
    case Qt::FontRole:
        if (m_loading) {
            QFont font;
            font.setItalic(true);
            return font;
        }
        if (node->parent && node->parent->type == LT_ROOT) {
            QFont font;
            // The heaviest weight ("black"; 87 on the old scale).
            font.setWeight(QFont::Black);
            return font;
        }
        return QVariant();
    default:
        return QVariant();
    }
}

QString CLibraryModel::displayCaption(const CLibraryNode* node)
{
    // The English names the libraries give their built-in playlists.
    static const char* const kBuiltIn[] = {QT_TR_NOOP("Music"),     QT_TR_NOOP("Movies"),
                                           QT_TR_NOOP("Ringtones"), QT_TR_NOOP("TV Shows"),
                                           QT_TR_NOOP("Podcasts"),  QT_TR_NOOP("Purchased")};
    switch (node->type) {
    case LT_LIBRARY:
        return tr("Library");
    case LT_PLAYLISTS:
        return tr("PlayList");
    case LT_PLAYLIST:
        if (node->parent && node->parent->type == LT_LIBRARY) {
            for (const char* name : kBuiltIn)
                if (node->caption == QLatin1String(name))
                    return tr(name);
        }
        return node->caption;
    default:
        // The loading row (worded when it was made); the root is never shown.
        return node->caption;
    }
}

void CLibraryModel::retranslate()
{
    if (!m_root)
        return;
    for (CLibraryNode* group : std::as_const(m_root->children)) {
        const int row = m_root->children.indexOf(group);
        const QModelIndex groupIndex = index(row, 0);
        emit dataChanged(groupIndex, groupIndex, {Qt::DisplayRole});
        if (group->getChildNum() > 0)
            emit dataChanged(index(0, 0, groupIndex),
                             index(group->getChildNum() - 1, 0, groupIndex), {Qt::DisplayRole});
    }
}

Qt::ItemFlags CLibraryModel::flags(const QModelIndex& index) const
{
    const CLibraryNode* node = index.isValid() ? nodeFromIndex(index) : nullptr;
    if (node && node->type == LT_PLAYLIST)
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    // Group captions cannot be selected.
    return Qt::NoItemFlags;
}

QVariant CLibraryModel::headerData(int, Qt::Orientation, int) const
{
    return QStringLiteral("header");
}
