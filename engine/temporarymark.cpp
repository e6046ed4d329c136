#include "engine/temporarymark.h"

#include <QFile>

#include <vexa.h>

CTemporaryMark::CTemporaryMark(const QString& path) : m_path(QFile::encodeName(path))
{
    KeloMarkTemporary(m_path.constData());
}

CTemporaryMark::~CTemporaryMark()
{
    KeloUnmarkTemporary(m_path.constData());
}
