#include "cli/pathalias.h"

#include "cli/localpath.h"
#include "engine/platformfolders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

CPathAlias::CPathAlias(const QString& path) : m_path(path)
{
    if (!localpath::hasRawBytes(path))
        return;
    const QByteArray target = localpath::encode(localpath::absolute(path));
    QDir().mkpath(programCacheDir());
    auto dir = std::make_unique<QTemporaryDir>(programCacheDir() + "/.alias-XXXXXX");
    if (!dir->isValid())
        return;
    // The link's name is what the library and the messages see of it.
    const QString link = dir->filePath(localpath::readable(path.section('/', -1)));
    if (::symlink(target.constData(), QFile::encodeName(link).constData()) != 0)
        return;
    m_linkMark = std::make_unique<CTemporaryMark>(link);
    m_dirMark = std::make_unique<CTemporaryMark>(dir->path());
    m_dir = std::move(dir);
    m_path = link;
}

// QTemporaryDir removes the link with its folder.
CPathAlias::~CPathAlias() = default;
