#include "script/journal.h"

#include "base/text/text.h"
#include "script/answers.h"
#include "ui/controls.h"
#include "ui/grid.h"
#include "ui/report_pane.h"

#include <algorithm>
#include <vector>

namespace opd::script {

namespace {

using Part = std::pair<std::string, std::string>;

constexpr const char* betweenCells = " | ";
constexpr int rowsTold = 20; ///< of a table; beyond them only how many there are

std::string quoted(const std::string& text) {
    return '"' + text::replaced(text::replaced(text, "\r", "\\r"), "\n", "\\n") + '"';
}

std::string whatIsChosen(const ui::Control& control) {
    switch (control.kind()) {
    case ui::Kind::OptionButton:
        return static_cast<const ui::OptionButton&>(control).selected() ? " selected" : "";
    case ui::Kind::CheckBox:
        return " " + std::to_string(static_cast<const ui::CheckBox&>(control).value());
    case ui::Kind::ComboBox: {
        const auto& box = static_cast<const ui::ComboBox&>(control);
        return " entry " + std::to_string(box.index()) + " of " + std::to_string(box.items().size());
    }
    case ui::Kind::Picture:
        return " frame " + std::to_string(static_cast<const ui::Picture&>(control).frame());
    case ui::Kind::Timer: {
        const auto& timer = static_cast<const ui::Timer&>(control);
        return timer.running() ? " every " + std::to_string(timer.interval()) : "";
    }
    default:
        return "";
    }
}

/// What one sees of a control, its table apart.
std::string appearance(const ui::Control& control) {
    std::string seen = quoted(control.shownText()) + whatIsChosen(control);
    if (!control.caption().empty() && control.caption() != control.shownText())
        seen += " called " + quoted(std::string{control.caption()});
    if (!control.visible())
        seen += " hidden";
    if (!control.enabled())
        seen += " off";
    if (control.isNeeded())
        seen += " needed";
    if (!control.refusal().empty())
        seen += " refused " + quoted(std::string{control.refusal()});
    return seen;
}

void addTable(const ui::Grid& grid, std::vector<Part>& parts) {
    std::vector<std::string> columns;
    for (const ui::Grid::Column& column : grid.columns())
        columns.push_back(column.title + " " + std::to_string(column.width) + (column.rightAligned ? " right" : ""));
    parts.emplace_back(grid.name() + " columns", text::joined(columns, betweenCells));
    parts.emplace_back(grid.name() + " rows", std::to_string(grid.rowCount()));
    for (int row = 1; row <= std::min(grid.rowCount(), rowsTold); ++row)
        parts.emplace_back(grid.name() + " row " + std::to_string(row), text::joined(grid.row(row), betweenCells));
    parts.emplace_back(grid.name() + " current",
                       std::to_string(grid.currentRow()) + ", " + std::to_string(grid.currentColumn()));
}

/// All that one sees of a window, part by part.
std::vector<Part> pictureOf(const ui::Window& window) {
    std::vector<Part> parts{{"caption", quoted(std::string{window.caption()})},
                            {"status", quoted(window.statusLine())},
                            {"focus", window.focus() == nullptr ? "-" : window.focus()->name()}};
    for (const ui::Control* control : window.everything()) {
        parts.emplace_back(control->name(), appearance(*control));
        if (control->kind() == ui::Kind::Grid)
            addTable(static_cast<const ui::Grid&>(*control), parts);
    }
    return parts;
}

} // namespace

Journal::Journal(const std::filesystem::path& file) : m_file(file) {}

void Journal::line(const std::string& text) {
    m_file.append(text + "\n");
}

void Journal::command(const std::string& text) {
    line("> " + text);
}

void Journal::message(const ui::Message& message, ui::Answer answer) {
    line("  message " + quoted(message.caption) + ": " + quoted(message.text) +
         (message.detail.empty() ? "" : " about " + quoted(message.detail)) + " - " + captionOf(answer));
}

void Journal::look(const ui::Window* window) {
    const std::string name = window == nullptr ? "-" : window->name();
    if (name != m_window)
        line("  window " + name);
    m_window = name;
    if (window == nullptr)
        return;
    std::map<std::string, std::string>& seen = m_seen[name];
    for (const auto& [part, now] : pictureOf(*window)) {
        const auto [before, isNew] = seen.try_emplace(part, now);
        if (!isNew && before->second == now)
            continue;
        before->second = now;
        line(std::string{"  "}.append(part).append(" = ").append(now));
    }
}

} // namespace opd::script
