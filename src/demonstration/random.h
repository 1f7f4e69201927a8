#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>

namespace opd::demonstration {

/// Numbers that a seed decides, the same with every compiler and library.
class Random {
  public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    /// A number from 0 to `limit` - 1; the skew of a plain remainder is far below what names and dates would show.
    int below(int limit) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(limit)); }

    int between(int first, int last) { return first + below(last - first + 1); }

    bool chance(int percent) { return below(100) < percent; }

    template <class List> const auto& pick(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

    /// One from the front of the list more often than one from its end, as with names.
    template <class List> const auto& pickCommon(const List& list) {
        const int size = static_cast<int>(list.size());
        return list[static_cast<std::size_t>(std::min(below(size), below(size)))];
    }

  private:
    std::mt19937_64 m_engine;
};

/// A code such as "D007": the prefix and the number, filled with zeros to so many digits.
inline std::string numbered(const std::string& prefix, int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return prefix + std::string(digits > text.size() ? digits - text.size() : 0, '0') + text;
}

} // namespace opd::demonstration
