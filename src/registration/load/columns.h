#pragma once

#include "data/rows.h"
#include "ui/controls.h"

#include <initializer_list>

namespace opd::registration {

/// A column and the box that shows it.
struct TextColumn {
    const char* column;
    ui::TextBox& box;
};

/// Puts each column of the current row into its box, null as an empty text. Throws ado::Error for a missing column.
inline void fill(const ado::Recordset& row, std::initializer_list<TextColumn> columns) {
    for (const auto& [column, box] : columns)
        box.setText(data::textOf(row, column));
}

/// Selects the option of the index, or none of them for any other index.
inline void selectOption(const ui::ControlArray<ui::OptionButton>& options, int wanted) {
    options.forEach([wanted](int index, ui::OptionButton& option) { option.setSelected(index == wanted); });
}

} // namespace opd::registration
