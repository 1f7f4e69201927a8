#pragma once

#include "ui/desktop.h"
#include "ui/keys.h"

#include <string_view>

namespace opd::data {

/// Turns a key into its upper-case form and keeps it only when it belongs in a name: letters A to Z, Ñ, blank, comma
/// and hyphen. Control keys pass. The key is replaced by 0 when it is dropped.
void FilterNameKey(char32_t& key);

/// The characters of a first name: "ABCDEFGHIJKLMNOPQRSTUVWXYZÑ.".
std::string_view NameCharacters();

/// Turns a to z into upper case and returns the key when it is one of the allowed characters or Backspace, Tab, Enter
/// or Escape; otherwise 0.
char32_t FilterKeyByChars(std::string_view allowed, char32_t key);

/// Returns the key when it is one of the allowed characters in any letter case, or Backspace when that is allowed;
/// otherwise beeps and returns 0.
char32_t FilterKeyInSet(ui::Desktop& desktop, char32_t key, std::string_view allowed, bool backspace);

} // namespace opd::data
