#include "server/faults.h"

#include "base/text/text.h"

#include <charconv>
#include <map>
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

bool hasArgument(Fault::Kind kind) {
    return kind == Fault::Kind::Slow || kind == Fault::Kind::Garbage || kind == Fault::Kind::Error;
}

/// Reads a number that is the whole text; false when it is none.
bool readNumber(const std::string& text, long& number) {
    long read = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    if (error != std::errc{} || end != text.data() + text.size())
        return false;
    number = read;
    return true;
}

} // namespace

Faults::Coming Faults::parsed(const std::string& fault) {
    const std::size_t at = fault.find('@');
    const auto kind = kinds.find(fault.substr(0, at));
    if (kind == kinds.end() || at == std::string::npos)
        throw std::invalid_argument("no fault: " + fault);
    Coming coming{{kind->second, {}}, {}, 1};
    std::string where = fault.substr(at + 1);
    if (const std::size_t colon = where.find(':'); hasArgument(kind->second) && colon != std::string::npos) {
        coming.fault.argument = where.substr(colon + 1);
        where.erase(colon);
    }
    long number = 0;
    if (kind->second == Fault::Kind::Slow && !readNumber(coming.fault.argument, number))
        throw std::invalid_argument("no milliseconds: " + fault);
    const std::size_t hash = where.rfind('#');
    const std::string count = hash == std::string::npos ? where : where.substr(hash + 1);
    if (count == "*")
        coming.countdown = always;
    else if (!readNumber(count, coming.countdown) && hash != std::string::npos)
        throw std::invalid_argument("no number of a statement: " + fault);
    if (hash != std::string::npos)
        coming.piece = text::upper(where.substr(0, hash));
    else if (count != "*" && !readNumber(count, number))
        coming.piece = text::upper(std::string_view{where});
    return coming;
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
