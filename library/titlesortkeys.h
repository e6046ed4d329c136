#pragma once
// The titles of a playlist's songs as the song list sorts them: each title,
// and a key made once when the titles are set, so that comparing two titles
// without regard to case is a byte comparison of their keys. The key is the
// title case-folded one UTF-16 unit at a time, as QString folds when it
// compares, written in UTF-8, whose byte order is the units' order. A title
// holding a surrogate (a character beyond the first plane) has none and is
// compared by QString itself; either way the result is exactly
// QString::compare(..., Qt::CaseInsensitive)'s. Plain value; any thread.

#include <QString>
#include <QVector>

#include <cstdint>
#include <string>
#include <vector>

class CTitleSortKeys
{
public:
    void assign(const QVector<QString>& titles);
    void clear();
    int size() const { return static_cast<int>(m_titles.size()); }
    const QString& title(int i) const { return m_titles.at(i); }
    // Negative, zero or positive as QString::compare(title(a), title(b),
    // Qt::CaseInsensitive).
    int compareCaseInsensitive(int a, int b) const;

private:
    QVector<QString> m_titles;
    // The keys, one after another: title i's runs from m_start[i] to
    // m_start[i + 1] (empty for a title without a key).
    std::string m_keys;
    std::vector<uint32_t> m_start;
    std::vector<bool> m_hasKey;
};
