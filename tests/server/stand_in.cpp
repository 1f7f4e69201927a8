#include "server/stand_in.h"

#include "base/text/text.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace opd::testserver {

namespace {

/// Lines that are comments, and empty ones, taken away from the beginning.
std::string withoutHeading(const std::string& batch) {
    std::size_t at = 0;
    while (at < batch.size()) {
        const std::size_t end = std::min(batch.find('\n', at), batch.size() - 1) + 1;
        const std::string line = text::trimmed(batch.substr(at, end - at));
        if (!line.empty() && line != "\r" && !line.starts_with("--"))
            break;
        at = end;
    }
    return batch.substr(at);
}

/// The desk's own statements name no schema, and begin with none of these words.
bool isOfScript(const std::string& batch) {
    std::istringstream all(batch);
    std::string first;
    std::string second;
    all >> first >> second;
    constexpr const char* words[] = {"ALTER", "CREATE", "DECLARE", "DROP", "GRANT", "IF", "INSERT"};
    const bool defines = std::any_of(std::begin(words), std::end(words),
                                     [&](const char* word) { return text::equalsIgnoringCase(first, word); });
    return (defines && !second.starts_with("@@")) || batch.find("dbo.") != std::string::npos;
}

} // namespace

std::string withoutPrefix(const std::string& prefix, const std::string& text) {
    return prefix.empty() ? text : text::replaced(text, prefix, "");
}

std::string standingIn(const std::string& prefix, const std::string& batch) {
    if (prefix.empty())
        return batch;
    const std::string content = withoutHeading(batch);
    return isOfScript(content) ? std::string{} : withoutPrefix(prefix, content);
}

} // namespace opd::testserver
