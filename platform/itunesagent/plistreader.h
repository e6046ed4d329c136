#pragma once
// A streaming reader for XML property lists over a document held in memory.
// It checks well-formedness as it goes (matching tags, entities, one root,
// nothing but markup between values) and hands out one value at a time, so
// that a library of 50 000 tracks is read without building a tree. Texts
// without entities point into the document; decoded ones into a scratch
// buffer that the next text of the same kind (key or value) reuses.
// Single-threaded; owned by its caller.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ita {

class PlistReader
{
public:
    enum Type
    {
        None,
        Dict,
        Array,
        String,
        Integer,
        Real,
        Date,
        Data,
        True,
        False
    };

    struct Value
    {
        Type type = None;
        std::string_view text; // scalars
        int64_t integer = 0;   // Integer
        bool closed = false;   // a container written as <dict/> or <array/>
    };

    explicit PlistReader(std::string_view document);

    // The prolog and the <plist> start tag.
    bool begin();
    // The next value of the current container (after nextKey() in a dict).
    // A container that is not closed becomes the current one until its end,
    // which makes next() (array) or nextKey() (dict) return false.
    bool next(Value& value);
    // The next key of the current dict; false at its end (or on error).
    bool nextKey(std::string_view& key);
    // Reads past the rest of a container value returned by next().
    bool skip(const Value& value);
    // The </plist> end tag and nothing but comments after it.
    bool end();

    bool ok() const { return m_error.empty(); }
    // The reason of the first failure, with its line number.
    const std::string& error() const { return m_error; }
    // Records a failure found by the caller (a value of the wrong type).
    bool fail(const std::string& why);

    static const char* typeName(Type type);

private:
    struct Tag
    {
        std::string_view name;
        bool end = false;
        bool empty = false; // <name/>
    };
    struct Frame
    {
        Type type;
        bool keyPending;
    };

    bool readTag(Tag& tag);
    bool skipMisc();
    bool readText(std::string_view element, std::string& scratch, std::string_view& out);
    bool decodeEntity(std::string& out);
    bool expectEnd(std::string_view name);
    bool readValue(const Tag& tag, Value& value);

    const char* m_begin;
    const char* m_p;
    const char* m_end;
    std::vector<Frame> m_stack;
    std::string m_keyScratch;
    std::string m_valueScratch;
    std::string m_error;
};

} // namespace ita
