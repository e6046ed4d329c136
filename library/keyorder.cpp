#include "library/keyorder.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

namespace {

struct Item
{
    uint64_t chunk;  // eight bytes of the key from the depth on, high byte first, 0 past its end
    uint64_t next;   // the eight after those, so that most runs go deeper without the key
    uint32_t length; // the key's
    uint32_t index;
};

// The tail of a key that goes on past the chunk.
constexpr uint32_t kGoesOn = 9;
// Runs shorter than this are sorted by comparison.
constexpr ptrdiff_t kRadixFrom = 512;

uint64_t bigEndian(uint64_t value)
{
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return value;
#else
    return __builtin_bswap64(value);
#endif
}

uint64_t chunkAt(std::string_view key, size_t depth)
{
    const size_t left = key.size() > depth ? key.size() - depth : 0;
    uint64_t chunk = 0;
    if (left >= 8) {
        std::memcpy(&chunk, key.data() + depth, 8);
        return bigEndian(chunk);
    }
    for (size_t i = 0; i < left; ++i)
        chunk |= uint64_t{static_cast<unsigned char>(key[depth + i])} << (56 - 8 * i);
    return chunk;
}

// The key's bytes from the depth on, kGoesOn for more than eight. A key that
// ends within the chunk sorts before one that goes on, also when the next
// byte of the longer one is a NUL.
uint32_t tailAt(const Item& item, size_t depth)
{
    const size_t left = item.length - depth;
    return left > 8 ? kGoesOn : static_cast<uint32_t>(left);
}

// Moves an item that went on past `depth` to the next eight bytes.
void goDeeper(Item& item, const std::vector<std::string_view>& keys, size_t depth)
{
    item.chunk = item.next;
    // The key itself is read only for what lies beyond the sixteen bytes
    // the item carries.
    item.next = item.length > depth + 16 ? chunkAt(keys[item.index], depth + 16) : 0;
}

// The whole order of two items that agree up to `depth`: mostly told by
// the sixteen bytes they carry, by their lengths when one ends within
// those, else by the rest of their keys; equal keys by index.
bool lessFrom(const Item& a, const Item& b, size_t depth, const std::vector<std::string_view>& keys)
{
    if (a.chunk != b.chunk)
        return a.chunk < b.chunk;
    if (a.next != b.next)
        return a.next < b.next;
    const size_t left = a.length - depth;
    const size_t right = b.length - depth;
    if (left > 16 && right > 16) {
        const int rest = keys[a.index].substr(depth + 16).compare(keys[b.index].substr(depth + 16));
        if (rest != 0)
            return rest < 0;
    } else if (left != right) {
        // Equal bytes so far, zeros past an end: the shorter key begins the
        // longer one.
        return left < right;
    }
    return a.index < b.index;
}

// Sorts by chunk; equal chunks keep their order.
void sortRun(Item* first, Item* last, Item* scratch)
{
    const ptrdiff_t n = last - first;
    if (n < kRadixFrom) {
        // The items come in index order, so ordering equal chunks by index
        // keeps them as they came, without the buffer a stable sort takes.
        std::sort(first, last, [](const Item& a, const Item& b) {
            return a.chunk != b.chunk ? a.chunk < b.chunk : a.index < b.index;
        });
        return;
    }
    // Least significant digit first, eleven bits a digit; a digit that is
    // the same for every item is skipped.
    constexpr int kBits = 11;
    constexpr int kDigits = (64 + kBits - 1) / kBits;
    constexpr size_t kValues = size_t{1} << kBits;
    std::vector<size_t> counts(kDigits * kValues, 0);
    for (const Item* item = first; item != last; ++item)
        for (int digit = 0; digit < kDigits; ++digit)
            ++counts[static_cast<size_t>(digit) * kValues +
                     ((item->chunk >> (kBits * digit)) & (kValues - 1))];
    Item* from = first;
    Item* to = scratch;
    for (int digit = 0; digit < kDigits; ++digit) {
        size_t* count = counts.data() + static_cast<size_t>(digit) * kValues;
        if (std::any_of(count, count + kValues,
                        [n](size_t c) { return c == static_cast<size_t>(n); }))
            continue;
        size_t sum = 0;
        for (size_t value = 0; value < kValues; ++value) {
            const size_t here = count[value];
            count[value] = sum;
            sum += here;
        }
        for (const Item* item = from; item != from + n; ++item)
            to[count[(item->chunk >> (kBits * digit)) & (kValues - 1)]++] = *item;
        std::swap(from, to);
    }
    if (from != first)
        std::copy(from, from + n, first);
}

struct Run
{
    Item* first;
    Item* last;
    size_t depth;
};

// Without recursion: titles that share a long beginning must not use up
// the stack.
void sortAll(Item* first, Item* last, const std::vector<std::string_view>& keys)
{
    // As long as the items, left unwritten until a radix pass needs it.
    const std::unique_ptr<Item[]> scratch(new Item[static_cast<size_t>(last - first)]);
    std::vector<Run> runs{{first, last, 0}};
    while (!runs.empty()) {
        const Run whole = runs.back();
        runs.pop_back();
        sortRun(whole.first, whole.last, scratch.get());
        // Within a run of equal chunks, a short run is sorted at once by
        // what the items carry; in a long one, the keys that end there come
        // first, shorter before longer, and those that go on are sorted by
        // their next bytes.
        const size_t depth = whole.depth;
        for (Item* run = whole.first; run != whole.last;) {
            Item* end = run + 1;
            while (end != whole.last && end->chunk == run->chunk)
                ++end;
            if (end - run > 1 && end - run < kRadixFrom) {
                std::sort(run, end, [&keys, depth](const Item& a, const Item& b) {
                    return lessFrom(a, b, depth, keys);
                });
            } else if (end - run > 1) {
                const auto byTail = [depth](const Item& a, const Item& b) {
                    const uint32_t left = tailAt(a, depth);
                    const uint32_t right = tailAt(b, depth);
                    return left != right ? left < right : a.index < b.index;
                };
                if (!std::is_sorted(run, end, byTail))
                    std::sort(run, end, byTail);
                Item* goesOn = std::find_if(
                    run, end, [depth](const Item& item) { return tailAt(item, depth) == kGoesOn; });
                if (end - goesOn > 1) {
                    for (Item* item = goesOn; item != end; ++item)
                        goDeeper(*item, keys, depth);
                    runs.push_back({goesOn, end, depth + 8});
                }
            }
            run = end;
        }
    }
}

} // namespace

std::vector<uint32_t> orderOfKeys(const std::vector<std::string_view>& keys)
{
    const std::unique_ptr<Item[]> items(new Item[keys.size()]);
    for (size_t i = 0; i < keys.size(); ++i) {
        items[i].chunk = chunkAt(keys[i], 0);
        items[i].next = chunkAt(keys[i], 8);
        items[i].length = static_cast<uint32_t>(keys[i].size());
        items[i].index = static_cast<uint32_t>(i);
    }
    sortAll(items.get(), items.get() + keys.size(), keys);
    std::vector<uint32_t> order(keys.size());
    for (size_t i = 0; i < keys.size(); ++i)
        order[i] = items[i].index;
    return order;
}
