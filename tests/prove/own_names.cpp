#include "prove/own_names.h"

#include "base/text/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace opd::prove {

namespace {

bool belongsToName(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '@' ||
           c == '#' || c == '$' || (c & '\x80') != 0;
}

std::string withNames(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        while (at < text.size() && belongsToName(text[at]))
            ++at;
        const std::string_view word = text.substr(start, at - start);
        if (std::any_of(std::begin(databases), std::end(databases),
                        [&](const char* name) { return text::equalsIgnoringCase(word, name); }))
            result += ownPrefix;
        result += word;
        if (at < text.size())
            result += text[at++];
    }
    return result;
}

/// What ends at this place: the argument of a function that takes names, or statements.
bool opensNames(std::string_view before) {
    return before.ends_with("DB_ID(N") || before.ends_with("OBJECT_ID(N") || before.ends_with("EXEC(N");
}

/// Where the part that begins here ends: a quotation, a comment, or what stands before the next of these.
std::size_t endOfPart(std::string_view text) {
    const auto behind = [&](std::string_view closing, std::size_t from) {
        const std::size_t found = text.find(closing, from);
        return found == std::string_view::npos ? text.size() : found + closing.size();
    };
    if (text.starts_with('\''))
        return behind("'", 1);
    if (text.starts_with("--"))
        return behind("\n", 2);
    if (text.starts_with("/*"))
        return behind("*/", 2);
    return std::min({text.find('\''), text.find("--"), text.find("/*"), text.size()});
}

class OwnNamesLink final : public ado::Link {
  public:
    explicit OwnNamesLink(std::unique_ptr<ado::Link> link) : m_link(std::move(link)) {}

    ado::ResultSet run(const ado::Request& request) override {
        ado::Request own = request;
        own.text = underOwnNames(request.text);
        return m_link->run(own);
    }

    std::vector<ado::Value> call(const ado::Call& call) override {
        return m_link->call({underOwnNames(call.procedure), call.outputs});
    }

    void begin() override { m_link->begin(); }
    void commit() override { m_link->commit(); }
    void rollback() override { m_link->rollback(); }
    void setPatience(std::chrono::milliseconds patience) override { m_link->setPatience(patience); }
    void setOnWait(const OnWait& onWait) override { m_link->setOnWait(onWait); }

  private:
    std::unique_ptr<ado::Link> m_link;
};

class OwnNamesProvider final : public ado::Provider {
  public:
    explicit OwnNamesProvider(std::shared_ptr<ado::Provider> provider) : m_provider(std::move(provider)) {}

    bool serves(const ado::ConnectionString& settings) const override { return m_provider->serves(settings); }

    std::unique_ptr<ado::Link> open(const ado::ConnectionString& settings, const ado::Link::OnWait& onWait) override {
        return std::make_unique<OwnNamesLink>(m_provider->open(settings, onWait));
    }

  private:
    std::shared_ptr<ado::Provider> m_provider;
};

} // namespace

std::string ownName(std::string_view database) {
    return std::string{ownPrefix}.append(database);
}

std::string underOwnNames(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t end = endOfPart(text);
        const std::string_view part = text.substr(0, end);
        const bool isQuoted = part.starts_with('\'');
        result += isQuoted && !opensNames(result) ? std::string{part} : withNames(part);
        text.remove_prefix(end);
    }
    return result;
}

std::shared_ptr<ado::Provider> withOwnNames(std::shared_ptr<ado::Provider> provider) {
    return std::make_shared<OwnNamesProvider>(std::move(provider));
}

} // namespace opd::prove
