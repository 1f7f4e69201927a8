#pragma once

#include <string>
#include <vector>

namespace opd::host {

/// What the doctor found about one thing.
struct Finding {
    enum class State {
        Right,
        Missing, ///< the desk does without it
        Wrong,
    };

    std::string what; ///< "settings", "picture folder"
    State state = State::Right;
    std::string text; ///< what it is, or what is wrong with it; never a password
    std::string mend; ///< the command that mends it; empty where there is nothing to mend
};

using Findings = std::vector<Finding>;

inline Finding right(const std::string& what, const std::string& text) {
    return {what, Finding::State::Right, text, {}};
}
inline Finding missing(const std::string& what, const std::string& text, const std::string& mend = {}) {
    return {what, Finding::State::Missing, text, mend};
}
inline Finding wrong(const std::string& what, const std::string& text, const std::string& mend) {
    return {what, Finding::State::Wrong, text, mend};
}

/// A word of a command, as a shell reads it.
std::string shellWord(const std::string& word);

} // namespace opd::host
