#pragma once

#include "ado/value.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace opd::demonstration {

/// A table of the database Patient_Data and the columns of it that a row has values for.
struct Table {
    std::string_view name;
    std::vector<std::string_view> columns;
};

/// Takes generated rows into a database of whatever kind.
class Rows {
  public:
    virtual ~Rows() = default;

    /// A row, with a value for each column of the table. A table is one object as long as the generation lasts. What a
    /// row refers to has been added before it. Throws ado::Error.
    virtual void add(const Table& table, std::vector<ado::Value> values) = 0;

    /// The last number that was given out under a counter's name, behind all rows. Throws ado::Error.
    virtual void setCounter(std::string_view name, std::int64_t last) = 0;
};

} // namespace opd::demonstration
