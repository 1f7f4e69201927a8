#include "adapters/qt/basics/key_codes.h"

#include "base/text/text.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace opd::qt {

namespace {

struct Code {
    Qt::Key code;
    ui::Key key;
};

/// Of two codes for one key the first is the one that is sent.
constexpr Code codes[] = {
    {Qt::Key_Return, ui::Key::Enter},  {Qt::Key_Enter, ui::Key::Enter},   {Qt::Key_Tab, ui::Key::Tab},
    {Qt::Key_Backtab, ui::Key::Tab},   {Qt::Key_Escape, ui::Key::Escape}, {Qt::Key_Backspace, ui::Key::Backspace},
    {Qt::Key_Delete, ui::Key::Delete}, {Qt::Key_Up, ui::Key::Up},         {Qt::Key_Down, ui::Key::Down},
    {Qt::Key_Left, ui::Key::Left},     {Qt::Key_Right, ui::Key::Right},   {Qt::Key_Home, ui::Key::Home},
    {Qt::Key_End, ui::Key::End},       {Qt::Key_PageUp, ui::Key::PageUp}, {Qt::Key_PageDown, ui::Key::PageDown},
    {Qt::Key_F1, ui::Key::F1},         {Qt::Key_F2, ui::Key::F2},         {Qt::Key_F3, ui::Key::F3},
    {Qt::Key_F4, ui::Key::F4},         {Qt::Key_F5, ui::Key::F5},         {Qt::Key_F6, ui::Key::F6},
    {Qt::Key_F7, ui::Key::F7},         {Qt::Key_F8, ui::Key::F8},         {Qt::Key_F9, ui::Key::F9},
    {Qt::Key_F10, ui::Key::F10},       {Qt::Key_F11, ui::Key::F11},       {Qt::Key_F12, ui::Key::F12}};

/// The character of a key held down with Alt or Ctrl; 0 for keys that are no character.
char32_t characterOf(const QKeyEvent& event) {
    const QList<uint> text = event.text().toUcs4();
    if (text.size() == 1 && text[0] > ui::key::space)
        return text[0];
    return event.key() > Qt::Key_Space && event.key() < Qt::Key_Escape ? static_cast<char32_t>(event.key()) : 0;
}

bool isPrintable(const QString& text) {
    return !text.isEmpty() && text.at(0).isPrint();
}

} // namespace

std::optional<ui::KeyStroke> strokeOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    ui::KeyStroke stroke{.shift = held.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab,
                         .control = held.testFlag(Qt::ControlModifier),
                         .alt = held.testFlag(Qt::AltModifier)};
    const auto* const found =
        std::find_if(std::begin(codes), std::end(codes), [&](const Code& one) { return one.code == event.key(); });
    if (found != std::end(codes)) {
        stroke.key = found->key;
        return stroke;
    }
    if (held.testFlag(Qt::MetaModifier))
        return std::nullopt;
    // Ctrl and Alt together make characters on some keyboards.
    if (stroke.control == stroke.alt && isPrintable(event.text()))
        stroke = {.character = event.text().toUcs4().front()};
    else
        stroke.character = characterOf(event);
    return stroke.character == 0 ? std::nullopt : std::optional{stroke};
}

Qt::Key codeOf(const ui::KeyStroke& stroke) {
    if (stroke.isCharacter())
        return static_cast<Qt::Key>(text::upper(stroke.character));
    if (stroke.key == ui::Key::Tab && stroke.shift)
        return Qt::Key_Backtab;
    return std::find_if(std::begin(codes), std::end(codes), [&](const Code& one) { return one.key == stroke.key; })
        ->code;
}

} // namespace opd::qt
