#pragma once
// CPathAlias: a name that Qt and the engines can open for a path whose bytes
// are not UTF-8 (see localpath.h): a symbolic link to the path as it is,
// named as the path is named but with U+FFFD for each such byte, in a
// private folder of the scratch space. A plain path is its own alias. The
// link and its folder go with the alias (or with an interrupted run); what
// it names stays.

#include "engine/temporarymark.h"

#include <QString>

#include <memory>

class QTemporaryDir;

class CPathAlias
{
public:
    explicit CPathAlias(const QString& path);
    ~CPathAlias();

    CPathAlias(const CPathAlias&) = delete;
    CPathAlias& operator=(const CPathAlias&) = delete;

    // The name to open; the path itself when it needs no alias or when no
    // link could be made (it then fails as the path would).
    const QString& path() const { return m_path; }

private:
    QString m_path;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CTemporaryMark> m_linkMark;
    std::unique_ptr<CTemporaryMark> m_dirMark;
};
