#pragma once

#include <cstdlib>
#include <cstring>
#include <string_view>

/// The memory in which a component hands texts to its caller: the component allocates, the caller frees, and both use
/// this pair whatever they were built with.
namespace opd::com {

/// A copy of the text with a zero byte behind it; null when there is no memory left.
inline char* allocateText(std::string_view utf8) {
    auto* copy = static_cast<char*>(std::malloc(utf8.size() + 1));
    if (copy != nullptr) {
        std::memcpy(copy, utf8.data(), utf8.size());
        copy[utf8.size()] = '\0';
    }
    return copy;
}

/// Frees what allocateText gave. Null is ignored.
inline void freeText(char* text) {
    std::free(text);
}

} // namespace opd::com
