#pragma once
// The titles of a playlist's songs as the song list sorts them: the titles
// as the library agent gives them (UTF-8, each followed by a NUL), and for
// each a key made once, so that comparing two titles without regard to case
// is a byte comparison of their keys. A key is the title case-folded one
// UTF-16 unit at a time, as QString folds when it compares (the second unit
// of a surrogate pair stands for the folded character), each folded value
// written in UTF-8, whose byte order is the values' order. So the keys of
// two titles compare exactly as QString::compare(..., Qt::CaseInsensitive)
// compares the titles. Plain value; any thread.

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CTitleSortKeys
{
public:
    // The key of any title.
    static std::string keyOf(const QString& title);

    // Takes the titles, each followed by a NUL (bytes after the last NUL
    // are left out).
    void assignUtf8(const QByteArray& titles);
    void clear();
    int size() const { return static_cast<int>(m_titleStart.size()); }
    // Title i as the agent's texts are turned into strings.
    QString title(int i) const;
    std::string_view key(int i) const;

private:
    QByteArray m_titles;
    // Title i runs from m_titleStart[i] to its NUL; its key from
    // m_keyStart[i] to m_keyStart[i + 1] in m_keys.
    std::vector<uint32_t> m_titleStart;
    QByteArray m_keys;
    std::vector<uint32_t> m_keyStart;
};
