#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::script {

/// The words of a script line, parted by blanks. Words in single quotes stand as they are; in double quotes \n, \r, \t,
/// \" and \\ are one character each, every other backslash stands for itself. "#" at the start of a word begins a
/// comment. Throws std::runtime_error when a quote is not closed.
std::vector<std::string> wordsOf(std::string_view line);

} // namespace opd::script
