#pragma once

#include "ui/desktop.h"

#include <string>
#include <vector>

namespace opd::script {

/// A queued answer to a message box.
struct QueuedAnswer {
    std::size_t line = 0;
    ui::Answer button{};
    std::string text; ///< the exact text of the box, or a regular expression for the whole of it
    bool like = false;
    std::string detail = {}; ///< a regular expression for the whole of what stands below the text, when not empty

    /// True when the box has this text, and this detail.
    bool fits(const ui::Message& message) const;
};

/// Reads the words behind `answer`: BUTTON to|like TEXT [detail PATTERN]. Throws std::runtime_error when they are not
/// so.
QueuedAnswer queuedAnswer(std::size_t line, const std::vector<std::string>& words);

/// The caption of a button: "OK", "Cancel", "Yes", "No".
const char* captionOf(ui::Answer answer);

} // namespace opd::script
