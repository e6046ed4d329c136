#pragma once
// Sorts byte-string keys without comparing them one pair at a time: a radix
// sort on their first eight bytes, then again on the next eight within each
// run that is still equal. Equal keys keep their order, so the result is
// the order std::stable_sort gives by std::string_view's comparison (bytes
// as unsigned, a key before the longer keys it begins). The caller owns the
// keys; a stateless function, any thread.

#include <cstdint>
#include <string_view>
#include <vector>

// The positions of `keys` in their sorted order.
std::vector<uint32_t> orderOfKeys(const std::vector<std::string_view>& keys);
