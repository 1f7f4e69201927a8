#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ado {

/// The names of an answer's columns, in their order. Copies share them, as the answers to one statement do.
class Columns {
  public:
    Columns() = default;
    Columns(std::vector<std::string> names);
    Columns(std::initializer_list<std::string> names) : Columns(std::vector<std::string>(names)) {}

    const std::vector<std::string>& names() const;

    std::size_t size() const { return names().size(); }
    bool empty() const { return names().empty(); }
    const std::string& operator[](std::size_t place) const { return names()[place]; }
    auto begin() const { return names().begin(); }
    auto end() const { return names().end(); }

    /// The place of the first column of a name in any letter case; none when there is no such column.
    std::optional<std::size_t> find(std::string_view name) const;

    bool operator==(const Columns& other) const { return m_index == other.m_index || names() == other.names(); }

  private:
    struct Index;
    std::shared_ptr<const Index> m_index; ///< null for no columns
};

} // namespace opd::ado
