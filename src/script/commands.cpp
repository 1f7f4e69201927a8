#include "script/commands.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "script/pattern.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iomanip>
#include <ostream>
#include <thread>

namespace opd::script {

namespace {

using Words = std::vector<std::string>;

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

void require(bool truth, const std::string& expectation, const std::string& reality) {
    if (!truth)
        throw Mismatch("expected " + expectation + ", but " + reality);
}

int number(const std::string& word) {
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    require(error == std::errc{} && end == word.data() + word.size(), "a number", "there is " + quoted(word));
    return value;
}

std::string focusName(const Scene& scene) {
    const ui::Control* const focus = scene.window().focus();
    return focus == nullptr ? "nothing" : focus->name();
}

void requireReachable(const Scene& scene, ui::Control& control) {
    require(scene.driver.isShown(control), control.name() + " to be visible", "it is hidden");
    require(scene.driver.isEnabled(control), control.name() + " to be enabled", "it is disabled");
}

/// Moves the focus by the focus rules; a field that is left may refuse.
ui::Control& focusOn(const Scene& scene, const std::string& name) {
    ui::Control& control = scene.control(name);
    requireReachable(scene, control);
    if (!scene.driver.hasFocus(control))
        scene.driver.focus(control);
    require(scene.driver.currentWindow() == &control.window() && scene.driver.hasFocus(control),
            name + " to get the focus",
            scene.driver.currentWindow() == nullptr ? "no window is shown" : focusName(scene) + " has it");
    scene.driver.selectContent();
    return control;
}

// Expectations

void expectWindow(const Scene& scene, const Words& words) {
    const ui::Window* const window = scene.driver.currentWindow();
    const std::string shown = window == nullptr ? "none" : window->name();
    require(shown == words[0], "the window " + words[0], shown + " is shown");
}

void expect(const Scene& scene, const Words& words) {
    const std::string shown = scene.driver.shownText(scene.control(words[0]));
    require(shown == words[1], words[0] + " to read " + quoted(words[1]), "it reads " + quoted(shown));
}

void expectLike(const Scene& scene, const Words& words) {
    const std::string shown = scene.driver.shownText(scene.control(words[0]));
    require(describes(words[1], shown), words[0] + " to read like " + quoted(words[1]), "it reads " + quoted(shown));
}

void expectStatus(const Scene& scene, const Words& words) {
    const std::string shown = scene.driver.statusLine();
    require(shown == words[0], "the status line to read " + quoted(words[0]), "it reads " + quoted(shown));
}

/// What can be asked of a control, and how it is called when it is so and when it is not.
struct Trait {
    bool (Driver::*is)(ui::Control&);
    const char* name;
    const char* opposite;
};

constexpr Trait isEnabled{&Driver::isEnabled, "enabled", "disabled"};
constexpr Trait isVisible{&Driver::isShown, "visible", "hidden"};
constexpr Trait isChecked{&Driver::isChecked, "checked", "unchecked"};
constexpr Trait isNeeded{&Driver::isNeeded, "marked as needed", "unmarked"};

template <const Trait& trait, bool wanted> void expectTrait(const Scene& scene, const Words& words) {
    const bool truth = (scene.driver.*trait.is)(scene.control(words[0]));
    require(truth == wanted, words[0] + " to be " + (wanted ? trait.name : trait.opposite),
            std::string{"it is "} + (truth ? trait.name : trait.opposite));
}

void expectFocus(const Scene& scene, const Words& words) {
    require(scene.driver.hasFocus(scene.control(words[0])), words[0] + " to have the focus",
            focusName(scene) + " has it");
}

void expectSelection(const Scene& scene, const Words& words) {
    const std::string selected = scene.driver.selection();
    require(selected == words[0], quoted(words[0]) + " to be selected", quoted(selected) + " is");
}

void expectRows(const Scene& scene, const Words& words) {
    const int rows = scene.driver.rowCount(scene.controlOf<ui::Grid>(words[0], "grid"));
    require(rows == number(words[1]), words[0] + " to have " + words[1] + " rows", "it has " + std::to_string(rows));
}

void expectCell(const Scene& scene, const Words& words) {
    const std::string shown =
        scene.driver.cell(scene.controlOf<ui::Grid>(words[0], "grid"), number(words[1]), number(words[2]));
    require(shown == words[3], words[0] + " row " + words[1] + " column " + words[2] + " to read " + quoted(words[3]),
            "it reads " + quoted(shown));
}

// Actions

void type(const Scene& scene, const Words& words) {
    focusOn(scene, words[0]);
    for (const char32_t character : text::decode(words[1]))
        scene.press({.character = character});
}

void paste(const Scene& scene, const Words& words) {
    if (!scene.driver.hasFocus(scene.control(words[0])))
        focusOn(scene, words[0]);
    scene.driver.setClipboard(words[1]);
    scene.press({.character = U'v', .control = true});
}

void clear(const Scene& scene, const Words& words) {
    focusOn(scene, words[0]);
    scene.press({.key = ui::Key::Backspace});
}

void focus(const Scene& scene, const Words& words) {
    focusOn(scene, words[0]);
}

void click(const Scene& scene, const Words& words) {
    ui::Control& control = scene.control(words[0]);
    requireReachable(scene, control);
    scene.driver.click(control);
}

void setChecked(const Scene& scene, const std::string& name, bool checked) {
    ui::Control& control = scene.control(name);
    requireReachable(scene, control);
    if (scene.driver.isChecked(control) != checked)
        scene.driver.click(control);
}

void check(const Scene& scene, const Words& words) {
    setChecked(scene, words[0], true);
}

void uncheck(const Scene& scene, const Words& words) {
    setChecked(scene, words[0], false);
}

void select(const Scene& scene, const Words& words) {
    auto& box = scene.controlOf<ui::ComboBox>(words[0], "list");
    const auto entry = std::find(box.items().begin(), box.items().end(), words[1]);
    require(entry != box.items().end(), words[0] + " to offer " + quoted(words[1]), "it does not");
    focusOn(scene, words[0]);
    scene.driver.pickEntry(box, static_cast<int>(entry - box.items().begin()));
}

void set(const Scene& scene, const Words& words) {
    auto& picker = scene.controlOf<ui::DatePicker>(words[0], "date or time picker");
    const bool isDate = picker.format() == ui::DatePicker::Format::Date;
    const std::optional<DateTime> value = isDate ? parseDate(words[1]) : parseTime(words[1]);
    require(value.has_value(), isDate ? "a date MM/dd/yyyy" : "a time hh:mm AM", "there is " + quoted(words[1]));
    focusOn(scene, words[0]);
    scene.driver.setPicker(picker, *value);
}

void tab(const Scene& scene, const Words& words) {
    for (ui::Control* control : scene.window().everything()) {
        if (control->kind() != ui::Kind::Page || control->caption() != words[0])
            continue;
        auto& page = static_cast<ui::Page&>(*control);
        auto& tabs = static_cast<ui::Tabs&>(*page.container());
        scene.driver.pickPage(tabs, page.index());
        require(scene.driver.shownText(tabs) == words[0], "the tab " + quoted(words[0]) + " to be shown",
                quoted(scene.driver.shownText(tabs)) + " is");
        return;
    }
    throw Mismatch("expected a tab " + quoted(words[0]) + ", but " + scene.window().name() + " has none");
}

void pickCell(const Scene& scene, ui::Grid& grid, int row, int column) {
    requireReachable(scene, grid);
    require(row >= 1 && row <= scene.driver.rowCount(grid), grid.name() + " to have a row " + std::to_string(row),
            "it has " + std::to_string(scene.driver.rowCount(grid)));
    scene.driver.pickCell(grid, row, column);
}

void row(const Scene& scene, const Words& words) {
    auto& grid = scene.controlOf<ui::Grid>(words[0], "grid");
    const auto shown =
        std::find_if(grid.columns().begin(), grid.columns().end(), [](const auto& column) { return column.width > 0; });
    pickCell(scene, grid, number(words[1]), static_cast<int>(shown - grid.columns().begin()));
}

void cell(const Scene& scene, const Words& words) {
    auto& grid = scene.controlOf<ui::Grid>(words[0], "grid");
    const int column = number(words[2]);
    require(column >= 0 && column < static_cast<int>(grid.columns().size()), words[0] + " to have a column " + words[2],
            "it has " + std::to_string(grid.columns().size()));
    pickCell(scene, grid, number(words[1]), column);
}

void doubleClick(const Scene& scene, const Words& words) {
    auto& grid = scene.controlOf<ui::Grid>(words[0], "grid");
    requireReachable(scene, grid);
    scene.driver.doubleClick(grid);
}

void key(const Scene& scene, const Words& words) {
    scene.window();
    const std::optional<ui::KeyStroke> stroke = ui::keyStroke(words[0]);
    if (!stroke)
        throw std::runtime_error("\"" + words[0] + "\" is no key");
    scene.press(*stroke);
}

void print(const Scene& scene, const Words& words) {
    scene.output << scene.driver.shownText(scene.control(words[0])) << std::endl;
}

void say(const Scene& scene, const Words& words) {
    scene.output << words[0] << std::endl;
}

void keys(const Scene& scene, const Words& words) {
    scene.window();
    for (const char32_t character : text::decode(words[0]))
        scene.press({.character = character});
}

void countKeystrokes(const Scene& scene, const Words&) {
    scene.keystrokes = {};
}

void expectKeystrokes(const Scene& scene, const Words& words) {
    require(words[0] == "<=", "\"<=\" and a number", "there is " + quoted(words[0]));
    const Keystrokes& made = scene.keystrokes;
    require(made.uncountable.empty(), "keys alone", "there was " + quoted(made.uncountable));
    require(made.count <= number(words[1]), "at most " + words[1] + " keystrokes",
            "there were " + std::to_string(made.count));
}

void wait(const Scene& scene, const Words& words) {
    scene.driver.wait(number(words[0]));
}

/// Without a screen "wait" passes at once; this takes its time on every desktop.
void pause(const Scene&, const Words& words) {
    std::this_thread::sleep_for(std::chrono::milliseconds{number(words[0])});
}

/// Writes what took so long since the last time, or since the first one.
void stopwatch(const Scene& scene, const Words& words) {
    static std::chrono::steady_clock::time_point last = std::chrono::steady_clock::now();
    const auto now = std::chrono::steady_clock::now();
    const std::chrono::duration<double, std::milli> taken = now - last;
    scene.output << words[0] << ' ' << std::fixed << std::setprecision(3) << taken.count() << std::endl;
    last = std::chrono::steady_clock::now(); // the writing is nobody's
}

void screenshot(const Scene& scene, const Words& words) {
    scene.driver.screenshot(words[0]);
}

constexpr Command commands[] = {{"expect-window", 1, expectWindow},
                                {"expect", 2, expect},
                                {"expect-like", 2, expectLike},
                                {"expect-status", 1, expectStatus},
                                {"expect-enabled", 1, expectTrait<isEnabled, true>},
                                {"expect-disabled", 1, expectTrait<isEnabled, false>},
                                {"expect-visible", 1, expectTrait<isVisible, true>},
                                {"expect-hidden", 1, expectTrait<isVisible, false>},
                                {"expect-checked", 1, expectTrait<isChecked, true>},
                                {"expect-unchecked", 1, expectTrait<isChecked, false>},
                                {"expect-needed", 1, expectTrait<isNeeded, true>},
                                {"expect-not-needed", 1, expectTrait<isNeeded, false>},
                                {"expect-focus", 1, expectFocus},
                                {"expect-selection", 1, expectSelection},
                                {"expect-rows", 2, expectRows},
                                {"expect-cell", 4, expectCell},
                                {"type", 2, type, true},
                                {"paste", 2, paste, true},
                                {"clear", 1, clear, true},
                                {"focus", 1, focus, true},
                                {"click", 1, click, true},
                                {"check", 1, check, true},
                                {"uncheck", 1, uncheck, true},
                                {"select", 2, select, true},
                                {"set", 2, set, true},
                                {"tab", 1, tab, true},
                                {"row", 2, row, true},
                                {"cell", 3, cell, true},
                                {"double-click", 1, doubleClick, true},
                                {"key", 1, key},
                                {"keys", 1, keys},
                                {"count-keystrokes", 0, countKeystrokes},
                                {"expect-keystrokes", 2, expectKeystrokes},
                                {"print", 1, print},
                                {"say", 1, say},
                                {"wait", 1, wait},
                                {"pause", 1, pause},
                                {"stopwatch", 1, stopwatch},
                                {"screenshot", 1, screenshot}};

} // namespace

const Command* findCommand(const std::string& name) {
    const auto* const found = std::find_if(std::begin(commands), std::end(commands),
                                           [&](const Command& command) { return command.name == name; });
    return found == std::end(commands) ? nullptr : found;
}

} // namespace opd::script
