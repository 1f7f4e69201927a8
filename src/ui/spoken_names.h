#pragma once

#include "ui/window.h"

#include <string>
#include <unordered_map>

namespace opd::ui {

/// What a screen reader calls each control of a window: its own `spokenName`, or else its caption or label, or else
/// what stands before it or around it. A lookup button and the box of a code's name are called after the code field;
/// what would be called like another control of its kind is told apart by its frame, and then by its page. Captions
/// that change make new names.
class SpokenNames {
  public:
    explicit SpokenNames(const Window& window);

    /// Empty only for what is never spoken of: layout frames without a caption, timers.
    const std::string& of(const Control& control) const;

  private:
    std::unordered_map<const Control*, std::string> m_names;
};

/// What the mouse is told at a control: its own `tip`, the key of a lookup button or of a page, or nothing.
std::string tipOf(const Control& control, const SpokenNames& names);

} // namespace opd::ui
