#include "plistreader.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace ita {

namespace {

// Deeper nesting than this is no library file; refusing it keeps the
// recursion of skip() bounded.
constexpr size_t kMaxDepth = 64;

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isNameStart(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
}

bool isNameChar(unsigned char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool startsWith(const char* p, const char* end, std::string_view s)
{
    return static_cast<size_t>(end - p) >= s.size() && std::memcmp(p, s.data(), s.size()) == 0;
}

// Where `s` first stands in [p, end); end when it does not.
const char* findText(const char* p, const char* end, std::string_view s)
{
    return std::search(p, end, s.begin(), s.end());
}

void appendUtf8(std::string& out, uint32_t cp)
{
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

bool parseInteger(std::string_view s, int64_t& value)
{
    while (!s.empty() && isSpace(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isSpace(s.back()))
        s.remove_suffix(1);
    bool negative = false;
    if (!s.empty() && (s.front() == '-' || s.front() == '+')) {
        negative = s.front() == '-';
        s.remove_prefix(1);
    }
    if (s.empty() || s.size() > 18)
        return false;
    int64_t v = 0;
    for (char c : s) {
        if (c < '0' || c > '9')
            return false;
        v = v * 10 + (c - '0');
    }
    value = negative ? -v : v;
    return true;
}

} // namespace

PlistReader::PlistReader(std::string_view document)
    : m_begin(document.data()), m_p(document.data()), m_end(document.data() + document.size())
{
}

const char* PlistReader::typeName(Type type)
{
    switch (type) {
    case Dict:
        return "dict";
    case Array:
        return "array";
    case String:
        return "string";
    case Integer:
        return "integer";
    case Real:
        return "real";
    case Date:
        return "date";
    case Data:
        return "data";
    case True:
        return "true";
    case False:
        return "false";
    case None:
        break;
    }
    return "nothing";
}

bool PlistReader::fail(const std::string& why)
{
    if (!m_error.empty())
        return false;
    const char* at = std::min(m_p, m_end);
    const long line = 1 + std::count(m_begin, at, '\n');
    m_error = why + " (line " + std::to_string(line) + ")";
    return false;
}

bool PlistReader::skipMisc()
{
    for (;;) {
        while (m_p < m_end && isSpace(*m_p))
            ++m_p;
        if (startsWith(m_p, m_end, "<!--")) {
            const char* close = findText(m_p + 4, m_end, "-->");
            if (close == m_end)
                return fail("unterminated comment");
            m_p = close + 3;
        } else if (startsWith(m_p, m_end, "<?")) {
            const char* close = findText(m_p + 2, m_end, "?>");
            if (close == m_end)
                return fail("unterminated processing instruction");
            m_p = close + 2;
        } else {
            return true;
        }
    }
}

bool PlistReader::readTag(Tag& tag)
{
    if (m_p >= m_end)
        return fail("unexpected end of file");
    if (*m_p != '<')
        return fail("unexpected text where an element was expected");
    ++m_p;
    tag = Tag();
    if (m_p < m_end && *m_p == '/') {
        tag.end = true;
        ++m_p;
    }
    const char* name = m_p;
    if (m_p >= m_end || !isNameStart(static_cast<unsigned char>(*m_p)))
        return fail("malformed tag");
    while (m_p < m_end && isNameChar(static_cast<unsigned char>(*m_p)))
        ++m_p;
    tag.name = std::string_view(name, static_cast<size_t>(m_p - name));
    if (tag.end) {
        while (m_p < m_end && isSpace(*m_p))
            ++m_p;
        if (m_p >= m_end || *m_p != '>')
            return fail("malformed end tag </" + std::string(tag.name) + ">");
        ++m_p;
        return true;
    }
    for (;;) {
        const bool spaced = m_p < m_end && isSpace(*m_p);
        while (m_p < m_end && isSpace(*m_p))
            ++m_p;
        if (m_p >= m_end)
            return fail("unexpected end of file inside a tag");
        if (*m_p == '>') {
            ++m_p;
            return true;
        }
        if (*m_p == '/') {
            if (m_p + 1 >= m_end || m_p[1] != '>')
                return fail("malformed tag <" + std::string(tag.name) + ">");
            m_p += 2;
            tag.empty = true;
            return true;
        }
        // An attribute: name="value" or name='value', after white space.
        if (!spaced || !isNameStart(static_cast<unsigned char>(*m_p)))
            return fail("malformed attribute in <" + std::string(tag.name) + ">");
        while (m_p < m_end && isNameChar(static_cast<unsigned char>(*m_p)))
            ++m_p;
        while (m_p < m_end && isSpace(*m_p))
            ++m_p;
        if (m_p >= m_end || *m_p != '=')
            return fail("attribute without value in <" + std::string(tag.name) + ">");
        ++m_p;
        while (m_p < m_end && isSpace(*m_p))
            ++m_p;
        if (m_p >= m_end || (*m_p != '"' && *m_p != '\''))
            return fail("unquoted attribute value in <" + std::string(tag.name) + ">");
        const char quote = *m_p++;
        const char* close =
            static_cast<const char*>(std::memchr(m_p, quote, static_cast<size_t>(m_end - m_p)));
        if (!close)
            return fail("unterminated attribute value");
        if (std::memchr(m_p, '<', static_cast<size_t>(close - m_p)))
            return fail("'<' inside an attribute value");
        m_p = close + 1;
    }
}

bool PlistReader::decodeEntity(std::string& out)
{
    // m_p is at '&'.
    const char* semi = static_cast<const char*>(
        std::memchr(m_p, ';', static_cast<size_t>(std::min<std::ptrdiff_t>(m_end - m_p, 12))));
    if (!semi)
        return fail("'&' that starts no entity");
    const std::string_view name(m_p + 1, static_cast<size_t>(semi - m_p - 1));
    m_p = semi + 1;
    if (name == "amp")
        out.push_back('&');
    else if (name == "lt")
        out.push_back('<');
    else if (name == "gt")
        out.push_back('>');
    else if (name == "quot")
        out.push_back('"');
    else if (name == "apos")
        out.push_back('\'');
    else if (name.size() >= 2 && name[0] == '#') {
        const bool hex = name[1] == 'x';
        const std::string_view digits = name.substr(hex ? 2 : 1);
        if (digits.empty() || digits.size() > 8)
            return fail("malformed character reference &" + std::string(name) + ";");
        uint32_t cp = 0;
        for (char c : digits) {
            int d = -1;
            if (c >= '0' && c <= '9')
                d = c - '0';
            else if (hex && c >= 'a' && c <= 'f')
                d = c - 'a' + 10;
            else if (hex && c >= 'A' && c <= 'F')
                d = c - 'A' + 10;
            if (d < 0)
                return fail("malformed character reference &" + std::string(name) + ";");
            cp = cp * (hex ? 16 : 10) + static_cast<uint32_t>(d);
        }
        if (cp == 0 || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return fail("invalid character reference &" + std::string(name) + ";");
        appendUtf8(out, cp);
    } else {
        return fail("undefined entity &" + std::string(name) + ";");
    }
    return true;
}

bool PlistReader::readText(std::string_view element, std::string& scratch, std::string_view& out)
{
    // Fast path: plain text straight up to the matching end tag.
    const char* lt =
        static_cast<const char*>(std::memchr(m_p, '<', static_cast<size_t>(m_end - m_p)));
    if (!lt)
        return fail("unexpected end of file in <" + std::string(element) + ">");
    if (!std::memchr(m_p, '&', static_cast<size_t>(lt - m_p)) && lt + 1 < m_end && lt[1] == '/') {
        const char* text = m_p;
        m_p = lt;
        Tag tag;
        if (!readTag(tag))
            return false;
        if (tag.name != element)
            return fail("<" + std::string(element) + "> closed by </" + std::string(tag.name) +
                        ">");
        out = std::string_view(text, static_cast<size_t>(lt - text));
        return true;
    }
    scratch.clear();
    for (;;) {
        const char* stop = m_p;
        while (stop < m_end && *stop != '<' && *stop != '&')
            ++stop;
        scratch.append(m_p, static_cast<size_t>(stop - m_p));
        m_p = stop;
        if (m_p >= m_end)
            return fail("unexpected end of file in <" + std::string(element) + ">");
        if (*m_p == '&') {
            if (!decodeEntity(scratch))
                return false;
        } else if (startsWith(m_p, m_end, "<![CDATA[")) {
            const char* close = findText(m_p + 9, m_end, "]]>");
            if (close == m_end)
                return fail("unterminated CDATA section");
            scratch.append(m_p + 9, static_cast<size_t>(close - m_p - 9));
            m_p = close + 3;
        } else if (startsWith(m_p, m_end, "<!--") || startsWith(m_p, m_end, "<?")) {
            if (!skipMisc())
                return false;
        } else {
            Tag tag;
            if (!readTag(tag))
                return false;
            if (!tag.end)
                return fail("element <" + std::string(tag.name) + "> inside <" +
                            std::string(element) + ">");
            if (tag.name != element)
                return fail("<" + std::string(element) + "> closed by </" + std::string(tag.name) +
                            ">");
            out = scratch;
            return true;
        }
    }
}

bool PlistReader::expectEnd(std::string_view name)
{
    if (!skipMisc())
        return false;
    Tag tag;
    if (!readTag(tag))
        return false;
    if (!tag.end || tag.name != name)
        return fail("<" + std::string(name) + "> not closed");
    return true;
}

bool PlistReader::begin()
{
    if (startsWith(m_p, m_end, "\xEF\xBB\xBF"))
        m_p += 3;
    if (startsWith(m_p, m_end, "bplist"))
        return fail("a binary property list, not an XML one");
    if (startsWith(m_p, m_end, "\xFF\xFE") || startsWith(m_p, m_end, "\xFE\xFF"))
        return fail("a UTF-16 document; only UTF-8 is read");
    for (;;) {
        if (!skipMisc())
            return false;
        if (!startsWith(m_p, m_end, "<!DOCTYPE"))
            break;
        // Skip the declaration, its quoted identifiers and internal subset.
        int brackets = 0;
        char quote = 0;
        const char* p = m_p + 9;
        for (; p < m_end; ++p) {
            if (quote) {
                if (*p == quote)
                    quote = 0;
            } else if (*p == '"' || *p == '\'') {
                quote = *p;
            } else if (*p == '[') {
                ++brackets;
            } else if (*p == ']') {
                --brackets;
            } else if (*p == '>' && brackets <= 0) {
                break;
            }
        }
        if (p >= m_end)
            return fail("unterminated DOCTYPE");
        m_p = p + 1;
    }
    if (m_p >= m_end)
        return fail("empty document");
    Tag tag;
    if (!readTag(tag))
        return false;
    if (tag.end || tag.name != "plist")
        return fail("the root element is <" + std::string(tag.name) + ">, not <plist>");
    if (tag.empty)
        return fail("an empty <plist>");
    m_stack.push_back(Frame{None, true});
    return true;
}

bool PlistReader::readValue(const Tag& tag, Value& value)
{
    value = Value();
    const std::string_view n = tag.name;
    if (n == "dict" || n == "array") {
        value.type = n == "dict" ? Dict : Array;
        value.closed = tag.empty;
        if (!tag.empty) {
            if (m_stack.size() >= kMaxDepth)
                return fail("values nested too deeply");
            m_stack.push_back(Frame{value.type, false});
        }
        return true;
    }
    if (n == "true" || n == "false") {
        value.type = n == "true" ? True : False;
        return tag.empty || expectEnd(n);
    }
    if (n == "string")
        value.type = String;
    else if (n == "integer")
        value.type = Integer;
    else if (n == "real")
        value.type = Real;
    else if (n == "date")
        value.type = Date;
    else if (n == "data")
        value.type = Data;
    else if (n == "key")
        return fail("a <key> where a value belongs");
    else
        return fail("unknown element <" + std::string(n) + ">");
    if (!tag.empty && !readText(n, m_valueScratch, value.text))
        return false;
    if (value.type == Integer && !parseInteger(value.text, value.integer))
        return fail("<integer> holding \"" + std::string(value.text.substr(0, 40)) + "\"");
    return true;
}

bool PlistReader::next(Value& value)
{
    if (!ok() || m_stack.empty())
        return false;
    Frame& frame = m_stack.back();
    if (frame.type == Dict && !frame.keyPending)
        return fail("a value without its <key>");
    if (frame.type == None && !frame.keyPending)
        return fail("more than one value in <plist>");
    const Type containerType = frame.type;
    const bool keyPending = frame.keyPending;
    if (!skipMisc())
        return false;
    Tag tag;
    if (!readTag(tag))
        return false;
    if (tag.end) {
        if (containerType == Array && tag.name == "array") {
            m_stack.pop_back();
            return false;
        }
        if (containerType == Dict && keyPending)
            return fail("a <key> without a value");
        return fail("unexpected </" + std::string(tag.name) + ">");
    }
    // Set before readValue(), which may push a frame and move the stack.
    if (containerType != Array)
        frame.keyPending = false;
    return readValue(tag, value);
}

bool PlistReader::nextKey(std::string_view& key)
{
    if (!ok() || m_stack.empty())
        return false;
    Frame& frame = m_stack.back();
    if (frame.type != Dict || frame.keyPending)
        return fail("a <key> expected where none belongs");
    if (!skipMisc())
        return false;
    Tag tag;
    if (!readTag(tag))
        return false;
    if (tag.end) {
        if (tag.name != "dict")
            return fail("unexpected </" + std::string(tag.name) + ">");
        m_stack.pop_back();
        return false;
    }
    if (tag.name != "key")
        return fail("<" + std::string(tag.name) + "> where a <key> belongs");
    key = std::string_view();
    if (!tag.empty && !readText("key", m_keyScratch, key))
        return false;
    frame.keyPending = true;
    return true;
}

bool PlistReader::skip(const Value& value)
{
    if (value.closed || (value.type != Dict && value.type != Array))
        return ok();
    Value child;
    if (value.type == Array) {
        while (next(child))
            if (!skip(child))
                return false;
        return ok();
    }
    std::string_view key;
    while (nextKey(key)) {
        if (!next(child) || !skip(child))
            return fail("a <key> without a value");
    }
    return ok();
}

bool PlistReader::end()
{
    if (!ok())
        return false;
    if (m_stack.size() != 1 || m_stack.back().type != None || m_stack.back().keyPending)
        return fail("the document ends inside a value");
    if (!expectEnd("plist"))
        return false;
    m_stack.pop_back();
    if (!skipMisc())
        return false;
    if (m_p != m_end)
        return fail("content after </plist>");
    return true;
}

} // namespace ita
