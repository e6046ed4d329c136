#include "library/titlesortkeys.h"

#include <QChar>

#include <string_view>

namespace {

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

// Appends the key of a title; false, leaving `out` as it was, when the title
// holds a surrogate, which QString folds together with its neighbour.
bool appendKey(const QString& title, std::string& out)
{
    const size_t start = out.size();
    for (const QChar c : title) {
        const char16_t u = c.unicode();
        char32_t folded = u;
        if (u < 0x80) {
            if (u >= 'A' && u <= 'Z')
                folded = u + ('a' - 'A');
        } else {
            folded = QChar::toCaseFolded(char32_t(u));
        }
        if (QChar::isSurrogate(u) || folded > 0xFFFF || QChar::isSurrogate(folded)) {
            out.resize(start);
            return false;
        }
        appendUtf8(out, folded);
    }
    return true;
}

} // namespace

void CTitleSortKeys::assign(const QVector<QString>& titles)
{
    clear();
    m_titles = titles;
    m_start.reserve(static_cast<size_t>(titles.size()) + 1);
    m_hasKey.reserve(static_cast<size_t>(titles.size()));
    m_start.push_back(0);
    for (const QString& title : titles) {
        m_hasKey.push_back(appendKey(title, m_keys));
        m_start.push_back(static_cast<uint32_t>(m_keys.size()));
    }
}

void CTitleSortKeys::clear()
{
    m_titles.clear();
    m_keys.clear();
    m_start.clear();
    m_hasKey.clear();
}

int CTitleSortKeys::compareCaseInsensitive(int a, int b) const
{
    const auto i = static_cast<size_t>(a);
    const auto j = static_cast<size_t>(b);
    if (!m_hasKey[i] || !m_hasKey[j])
        return QString::compare(m_titles.at(a), m_titles.at(b), Qt::CaseInsensitive);
    // Byte by byte, then the shorter first: QString's order on folded text.
    const std::string_view left(m_keys.data() + m_start[i], m_start[i + 1] - m_start[i]);
    const std::string_view right(m_keys.data() + m_start[j], m_start[j + 1] - m_start[j]);
    return left.compare(right);
}
