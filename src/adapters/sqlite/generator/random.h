#pragma once

#include <algorithm>
#include <cstdint>
#include <random>

namespace opd::adapters::sqlite {

/// Numbers that a seed decides, the same with every compiler and library.
class Random {
  public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    /// A number from 0 to `limit` - 1; the skew of a plain remainder is far below what names and dates would show.
    int below(int limit) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(limit)); }

    int between(int first, int last) { return first + below(last - first + 1); }

    bool chance(int percent) { return below(100) < percent; }

    template <class List>
    const auto& pick(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

    /// One from the front of the list more often than one from its end, as with names.
    template <class List>
    const auto& pickCommon(const List& list) {
        const int size = static_cast<int>(list.size());
        return list[static_cast<std::size_t>(std::min(below(size), below(size)))];
    }

  private:
    std::mt19937_64 m_engine;
};

} // namespace opd::adapters::sqlite
