#include "server/faults.h"

#include "base/text/text.h"

#include <cstdlib>
#include <map>
#include <regex>
#include <stdexcept>

namespace opd::testserver {

namespace {

const std::map<std::string, Fault::Kind> kinds{
    {"drop-before", Fault::Kind::DropBefore},
    {"drop-after", Fault::Kind::DropAfter},
    {"drop-within", Fault::Kind::DropWithin},
    {"never", Fault::Kind::Never},
    {"slow", Fault::Kind::Slow},
    {"garbage", Fault::Kind::Garbage},
    {"error", Fault::Kind::Error},
};

/// Kind, a count alone or a piece of a statement with its count, and an argument.
const std::regex form{R"(([a-z-]+)@(?:(\d+|\*)|([^#:]+)(?:#(\d+|\*))?)(?::(.+))?)"};

} // namespace

Faults::Coming Faults::parsed(const std::string& fault) {
    std::smatch found;
    const bool isWritten = std::regex_match(fault, found, form) && kinds.contains(found[1]);
    if (!isWritten || (kinds.at(found[1]) == Fault::Kind::Slow && std::atol(found[5].str().c_str()) == 0))
        throw std::invalid_argument("no fault: " + fault);
    const std::string count = found[2].matched ? found[2] : found[4];
    return {{kinds.at(found[1]), found[5]},
            text::upper(std::string_view{found[3].str()}),
            count == "*"    ? always
            : count.empty() ? 1
                            : std::stol(count)};
}

void Faults::add(const std::string& fault) {
    const Coming coming = parsed(fault);
    const std::lock_guard guard(m_mutex);
    m_coming.push_back(coming);
}

void Faults::clear() {
    const std::lock_guard guard(m_mutex);
    m_coming.clear();
}

Fault Faults::next(const std::string& text, bool isLogin) {
    const std::string capitals = text::upper(std::string_view{text});
    const std::lock_guard guard(m_mutex);
    Fault hit;
    for (Coming& coming : m_coming) {
        const bool meant = coming.piece.starts_with("LOGIN") == isLogin &&
                           capitals.find(coming.piece) != std::string::npos && coming.countdown != 0;
        if (!meant || (coming.countdown != always && --coming.countdown > 0))
            continue;
        if (hit.kind == Fault::Kind::None)
            hit = coming.fault;
    }
    std::erase_if(m_coming, [](const Coming& coming) { return coming.countdown == 0; });
    return hit;
}

} // namespace opd::testserver
