#pragma once

#include <functional>
#include <string>
#include <vector>

namespace opd::adapters::reporting {

/// A piece of well-formed markup, looked through once.
struct Markup {
    std::string content;
    std::string text;                ///< what one reads in it: a line for each paragraph, heading or table row
    std::vector<std::string> groups; ///< the fourth-level headings
};

/// Looks through a piece of markup. `haveImage` is asked for the source of each image; where there is none, the image's
/// "alt" text takes its place. Throws std::runtime_error when the markup is not well formed.
Markup lookThrough(const std::string& markup, const std::function<bool(const std::string& source)>& haveImage);

} // namespace opd::adapters::reporting
