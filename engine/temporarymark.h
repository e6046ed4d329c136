#pragma once
// CTemporaryMark: marks a file for removal should the process be interrupted
// (KeloMarkTemporary), for as long as the mark lives. The file itself is
// the owner's to remove when all goes well.

#include <QByteArray>
#include <QString>

class CTemporaryMark
{
public:
    explicit CTemporaryMark(const QString& path);
    ~CTemporaryMark();

    CTemporaryMark(const CTemporaryMark&) = delete;
    CTemporaryMark& operator=(const CTemporaryMark&) = delete;

private:
    QByteArray m_path;
};
