#include "server/engine.h"

#include "ado/error.h"
#include "base/text/text.h"

#include <chrono>

namespace opd::testserver {

namespace {

constexpr auto patience = std::chrono::minutes{5}; ///< a server waits for a lock until its client gives up

bool isSelect(const std::string& statement) {
    constexpr std::string_view word = "SELECT";
    return text::equalsIgnoringCase(statement.substr(0, word.size()), word);
}

} // namespace

Engine::Engine(std::unique_ptr<ado::Link> link, std::function<bool()> isGivenUp)
    : m_link(std::move(link)), m_isGivenUp(std::move(isGivenUp)) {
    m_link->setPatience(patience);
    m_link->setOnWait([this](ado::Link::WaitsFor) {
        if (!m_givenUp && m_isGivenUp()) {
            m_givenUp = true;
            m_link->setPatience({});
        }
        return !m_givenUp;
    });
}

template <class Work> void Engine::watched(const Work& work) {
    m_givenUp = false;
    try {
        work();
    } catch (const ado::Error&) {
        if (!m_givenUp)
            throw;
    }
    if (!m_givenUp)
        return;
    m_link->setPatience(patience);
    throw GivenUp();
}

ado::ResultSet Engine::run(const std::string& statement) {
    if (m_inTransaction && !m_holds && !isSelect(statement)) {
        watched([this] {
            m_link->begin();
            m_holds = true;
        });
    }
    ado::ResultSet result;
    watched([&] { result = m_link->run({.text = statement}); });
    return result;
}

void Engine::begin() {
    if (m_inTransaction)
        throw ado::Error("A transaction has begun already.", "Test server", 3988);
    m_inTransaction = true;
    ++m_number;
}

void Engine::commit() {
    end(&ado::Link::commit, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.", 3902);
}

void Engine::rollback() {
    end(&ado::Link::rollback, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.", 3903);
}

void Engine::end(void (ado::Link::*how)(), const char* refusal, long number) {
    if (!m_inTransaction)
        throw ado::Error(refusal, "Test server", number);
    watched([&] {
        if (m_holds)
            (*m_link.*how)();
        m_inTransaction = m_holds = false;
    });
}

} // namespace opd::testserver
