#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::setup {

/// A part of a script that is sent by itself.
struct Batch {
    int line = 1; ///< of the script, where it begins
    std::string text;
};

/// The batches of a T-SQL script: what stands between lines that say GO and nothing else, in any letter case, perhaps
/// with a comment behind it. A GO within a quoted text, a quoted name or a comment is a part of that. Batches that hold
/// nothing but blanks and comments are left out. Throws ado::Error for a quotation or comment that never ends, and for
/// a GO that asks for repetition.
std::vector<Batch> batchesOf(std::string_view script);

} // namespace opd::setup
