#include "script/pattern.h"

#include <mutex>
#include <regex>
#include <stdexcept>

namespace opd::script {

namespace {

// The matcher that the library takes by itself calls itself for every character, and a long page ends the process. This
// one keeps all readings of the pattern side by side and goes through the text once. It knows no back references.
#ifdef __GLIBCXX__
constexpr auto syntax = std::regex_constants::ECMAScript | std::regex_constants::__polynomial;
#else
constexpr auto syntax = std::regex_constants::ECMAScript;
#endif

} // namespace

bool describes(const std::string& pattern, const std::string& text) {
    // Reading a pattern fills a cache of the locale that all threads share, and the library does it without a lock.
    static std::mutex oneReader;
    const std::lock_guard lock(oneReader);
    try {
        return std::regex_match(text, std::regex(pattern, syntax));
    } catch (const std::regex_error& error) {
        throw std::runtime_error("\"" + pattern + "\" is no regular expression: " + error.what());
    }
}

} // namespace opd::script
