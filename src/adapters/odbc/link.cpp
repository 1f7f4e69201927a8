#include "adapters/odbc/link.h"

#include "adapters/odbc/answers.h"
#include "adapters/odbc/background.h"
#include "adapters/odbc/diagnostics.h"

#include <algorithm>
#include <optional>

namespace opd::adapters::odbc {

namespace {

using namespace std::chrono_literals;

bool isTimeout(const ado::Error& failure) {
    return failure.sqlState().starts_with("HYT");
}

std::string tooLong(std::chrono::seconds limit) {
    return "The database server did not answer within " + std::to_string(limit.count()) + " seconds.";
}

ado::Error told(const ado::Error& failure, const std::string& sqlState, const std::string& truth) {
    return ado::Error(truth + " (" + failure.what() + ")", failure.source(), failure.number(), sqlState);
}

ado::Error lostInTransaction(const ado::Error& failure) {
    return told(failure, "08S01",
                "The connection to the database server was lost. Nothing of the unfinished transaction is stored.");
}

/// The answer to what writes was lost, or did not come in time.
ado::Error withoutAnswer(const ado::Error& failure, const std::string& sqlState, const std::string& truth = {}) {
    ado::Error error =
        isTimeout(failure)
            ? ado::Error(failure.what() + truth, failure.source(), failure.number(), sqlState)
            : told(failure, sqlState, "The connection to the database server was lost before it answered." + truth);
    error.setLeavesDoubt(true);
    return error;
}

constexpr const char* lookFirst = " It is not known whether this was stored: open the record again and look before it "
                                  "is entered a second time.";

/// The server may have given the transaction up by itself, as it does with a deadlock's victim and at a text that is no
/// date or number: what came behind it would be stored at once.
bool endsTransaction(const ado::Error& failure) {
    constexpr long deadlockVictim = 1205;
    return failure.number() == deadlockVictim || failure.sqlState() == "40001" || failure.sqlState().starts_with("22");
}

ado::Error givenUp(const ado::Error& failure) {
    return told(failure, failure.sqlState(), "The transaction cannot go on after a failure. Nothing of it is stored.");
}

class OdbcLink final : public ado::Link {
  public:
    OdbcLink(const ado::ConnectionString& settings, const Options& options, const OnWait& onWait)
        : m_settings(settings), m_options(options), m_onWait(onWait) {
        reconnect();
    }

    ado::ResultSet run(const ado::Request& request) override {
        return stated<ado::ResultSet>(
            request.effect, [text = request.text](const Query& query) { return answerOf(query, text); }, lookFirst);
    }

    std::vector<ado::Value> call(const ado::Call& call) override {
        return stated<std::vector<ado::Value>>(ado::Effect::Writes,
                                               [call](const Query& query) { return outputsOf(query, call); }, {});
    }

    void begin() override {
        // A transaction that was not begun has stored nothing: it may be begun again.
        perform<bool>(ado::Effect::Reads, [this](const std::shared_ptr<Session>& session) {
            return waitedFor<bool>([session] { return autoCommitted(*session, false); });
        });
        m_inTransaction = true;
    }

    void commit() override {
        throwIfTransactionIsLost();
        const auto session = m_session;
        try {
            waitedFor<bool>([session] { return ended(*session, SQL_COMMIT); });
        } catch (const ado::Error& failure) {
            if (!isLost(failure) && !isTimeout(failure))
                throw;
            leave();
            throw withoutAnswer(failure, "08007");
        }
        leaveTransaction();
    }

    void rollback() override {
        if (m_session != nullptr && m_inTransaction) {
            try {
                waitedFor<bool>([session = m_session] { return ended(*session, SQL_ROLLBACK); });
            } catch (const ado::Error&) {
                m_session.reset(); // without its connection the server undoes it by itself
            }
        }
        leaveTransaction();
    }

    void setPatience(std::chrono::milliseconds patience) override { m_patience = patience; }
    void setOnWait(const OnWait& onWait) override { m_onWait = onWait; }

  private:
    static bool autoCommitted(Session& session, bool on) {
        session.setAutoCommit(on);
        return true;
    }

    static bool ended(Session& session, SQLSMALLINT how) {
        session.end(how);
        return true;
    }

    /// How long a statement may take: others' locks are waited for as long as the caller says.
    std::chrono::seconds timeout() const {
        return std::max(m_options.statementTimeout, std::chrono::ceil<std::chrono::seconds>(m_patience));
    }

    /// Asked after every failure: some drivers name a lost connection only when it is used the next time.
    bool isLost(const ado::Error& failure) const {
        return m_session == nullptr || failure.sqlState().starts_with("08") || m_session->isDead();
    }

    void leave() {
        m_session.reset();
        m_inTransaction = false;
        m_transactionEndedBy.reset();
    }

    /// What was committed stays so, whatever becomes of the connection.
    void leaveTransaction() {
        m_inTransaction = false;
        m_transactionEndedBy.reset();
        try {
            if (m_session != nullptr)
                waitedFor<bool>([session = m_session] { return autoCommitted(*session, true); });
        } catch (const ado::Error&) {
            m_session.reset();
        }
    }

    void throwIfTransactionIsLost() const {
        if (m_transactionEndedBy)
            throw ado::Error(*m_transactionEndedBy);
    }

    void reconnect() {
        m_session = waitedFor<std::shared_ptr<Session>>(
            [settings = m_settings, options = m_options] { return std::make_shared<Session>(settings, options); },
            {.limit = m_options.loginTimeout, .what = WaitsFor::Login});
    }

    struct Waited {
        std::chrono::seconds limit{};
        WaitsFor what = WaitsFor::Statement;
        std::function<void()> cancel = nullptr; ///< nothing for what cannot be cancelled
    };

    /// Runs what may block while the caller's windows go on. Throws ado::Error, for a server that does not answer too.
    template <class Answer> Answer waitedFor(std::function<Answer()> work, const Waited& waited) {
        constexpr auto driversOwnTimeoutComesFirst = 2s;
        const std::chrono::seconds limit = waited.limit;
        Meanwhile meanwhile{.cancel = waited.cancel,
                            .deadline = std::chrono::steady_clock::now() + limit + driversOwnTimeoutComesFirst};
        if (m_onWait)
            meanwhile.onWait = [this, what = waited.what] { return m_onWait(what); };
        Ending ending;
        const auto ofEnding = [&](const ado::Error& failure) {
            if (ending.wasGivenUp)
                return ado::stopped(errorSource);
            return ending.wasTooLong || isTimeout(failure) ? ado::Error(tooLong(limit), errorSource, 0, "HYT00")
                                                           : failure;
        };
        try {
            if (std::optional<Answer> answer = inBackground<Answer>(std::move(work), meanwhile, ending))
                return std::move(*answer);
            m_session.reset(); // it is the deserted thread's alone
        } catch (const ado::Error& failure) {
            throw ofEnding(failure);
        }
        if (ending.wasHeld)
            throw ado::Error("The database driver failed at the server's answer.", errorSource, 0, "08S01");
        throw ofEnding(ado::Error(tooLong(limit), errorSource, 0, "HYT00"));
    }

    template <class Answer> Answer waitedFor(std::function<Answer()> work) {
        return waitedFor<Answer>(std::move(work), {.limit = timeout()});
    }

    /// A statement on a connection that holds, or holds again.
    template <class Answer>
    Answer stated(ado::Effect effect, const std::function<Answer(const Query&)>& work, const std::string& truth) {
        const auto onSession = [this, work](const std::shared_ptr<Session>& session) {
            const auto query = std::make_shared<Query>(session, timeout());
            return waitedFor<Answer>([query, work] { return work(*query); },
                                     {.limit = timeout(), .cancel = [query] { query->cancel(); }});
        };
        return perform<Answer>(effect, onSession, truth);
    }

    /// The rules for a connection that is lost: within a transaction it fails, what reads is tried once more, and what
    /// writes is never sent twice: it fails with the truth about it.
    template <class Answer>
    Answer perform(ado::Effect effect, const std::function<Answer(const std::shared_ptr<Session>&)>& work,
                   const std::string& truth = {}) {
        throwIfTransactionIsLost();
        if (m_session == nullptr)
            reconnect(); // nothing was sent yet
        try {
            return work(m_session);
        } catch (const ado::Error& failure) {
            const bool isGone = isLost(failure);
            if (m_inTransaction && (isGone || endsTransaction(failure)))
                m_transactionEndedBy = isGone ? lostInTransaction(failure) : givenUp(failure);
            if (isGone || (isTimeout(failure) && !m_inTransaction))
                m_session.reset(); // the driver may still be busy with what came too late
            if (failure.sqlState() == "HY008" || (!isGone && !isTimeout(failure)))
                throw;
            if (m_inTransaction)
                throw isGone ? *m_transactionEndedBy : failure;
            if (effect == ado::Effect::Writes)
                throw withoutAnswer(failure, isTimeout(failure) ? failure.sqlState() : "08S01", truth);
            if (isTimeout(failure))
                throw;
        }
        reconnect();
        return work(m_session);
    }

    ado::ConnectionString m_settings;
    Options m_options;
    std::chrono::milliseconds m_patience{15s};
    OnWait m_onWait;
    std::shared_ptr<Session> m_session; ///< null while the server is lost
    bool m_inTransaction = false;
    std::optional<ado::Error> m_transactionEndedBy; ///< what it fails with until it is rolled back
};

} // namespace

std::unique_ptr<ado::Link> openLink(const ado::ConnectionString& settings, const Options& options,
                                    const ado::Link::OnWait& onWait) {
    return std::make_unique<OdbcLink>(settings, options, onWait);
}

} // namespace opd::adapters::odbc
