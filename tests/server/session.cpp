#include "server/session.h"

#include "adapters/sqlite/provider.h"
#include "base/text/text.h"
#include "server/stand_in.h"

#include <algorithm>
#include <cstdlib>

namespace opd::testserver {

namespace {

constexpr std::size_t smallestPacket = 512;
constexpr std::size_t largestPacket = 32767;
constexpr std::size_t usualPacket = 4096;
constexpr long deadlockVictim = 1205;
constexpr std::string_view startDatabase = "master";

std::string messageOf(long number) {
    return number == deadlockVictim
               ? "Transaction (Process ID 51) was deadlocked on lock resources with another process "
                 "and has been chosen as the deadlock victim. Rerun the transaction."
               : "The test server fails with error " + std::to_string(number) + ".";
}

/// "1205" or "1205,message".
ado::Error errorOf(const std::string& argument) {
    const std::size_t comma = argument.find(',');
    const long number = std::atol(argument.c_str());
    return ado::Error(comma == std::string::npos ? messageOf(number) : argument.substr(comma + 1), "Test server",
                      number);
}

} // namespace

Shared::Shared(const Options& chosen, const Clock& clock)
    : options(chosen), provider(adapters::sqlite::makeSqliteProvider(clock)), log(chosen.log) {
    for (const std::string& fault : chosen.faults)
        faults.add(fault);
}

void Session::run() {
    if (!logIn())
        return;
    while (true)
        serve(m_channel.read());
}

bool Session::logIn() {
    Message message = m_channel.read();
    if (message.type == Message::Type::Prelogin) {
        m_channel.write(preloginAnswer(m_shared.options.requireEncryption));
        message = m_channel.read();
    }
    if (message.type != Message::Type::Login || m_shared.options.requireEncryption)
        return false; // the beginning of an encryption that was not offered, for one
    const Login login = readLogin(message.content);
    const std::string text = "login " + login.user + " " + login.database;
    m_shared.log.add(m_number, text);
    bool admitted = false;
    Tokens tokens;
    answer(m_shared.faults.next(text, true), tokens, Done::Batch, [&](Tokens& out) { admitted = admit(login, out); });
    if (admitted && login.packetSize != 0)
        m_channel.setPacketSize(std::clamp(login.packetSize, smallestPacket, largestPacket));
    return admitted;
}

bool Session::admit(const Login& login, Tokens& tokens) {
    const bool isOfScript = !prefix().empty() && login.user.starts_with(prefix()); // which nobody has made
    const bool isKnown =
        text::equalsIgnoringCase(login.user, m_shared.options.user) && login.password == m_shared.options.password;
    if (!isKnown && !isOfScript)
        throw ado::Error("Login failed for user '" + login.user + "'.", "Test server", 18456);
    const std::string database =
        login.database.empty() ? std::string{startDatabase} : withoutPrefix(prefix(), login.database);
    if (!isDatabase(database))
        throw ado::Error("Cannot open database \"" + database + "\" requested by the login. The login failed.",
                         "Test server", 4060);
    m_engine.emplace(
        m_shared.provider->open(ado::ConnectionString{"Data Source=" + m_shared.options.folder.string()}, {}),
        [this] { return isGivenUp(); });
    m_interpreter.emplace(*m_engine, database, m_shared.options.lacking);
    tokens.database(database, std::string{startDatabase});
    tokens.info(5701, "Changed database context to '" + database + "'.");
    tokens.collation();
    tokens.loginAccepted();
    tokens.packetSize(login.packetSize == 0 ? usualPacket : std::clamp(login.packetSize, smallestPacket, largestPacket),
                      usualPacket);
    tokens.done(Done::Batch, false);
    return true;
}

void Session::serve(const Message& message) {
    switch (message.type) {
    case Message::Type::Batch:
        batch(readBatch(message.content));
        return;
    case Message::Type::Rpc:
        rpc(readRpc(message.content));
        return;
    case Message::Type::Transaction:
        transaction(readTransaction(message.content));
        return;
    case Message::Type::Attention: { // its statement was answered meanwhile
        Tokens tokens;
        tokens.doneGivenUp();
        m_channel.write(tokens.bytes());
        return;
    }
    default:
        throw Disconnected("a message of an unknown type");
    }
}

void Session::batch(const std::string& text) {
    const std::string asked = standingIn(prefix(), text);
    statement(text, Done::Batch, [&](Tokens& tokens) { m_interpreter->run(asked, tokens, Done::Batch, false); });
}

void Session::rpc(const RpcRequest& request) {
    if (request.number == RpcRequest::executeSql || text::equalsIgnoringCase(request.name, "sp_executesql"))
        execute(request);
    else if (request.number == 0)
        statement(textOf(request.name, request.parameters, true), Done::Procedure, [&](Tokens& out) {
            m_interpreter->call(withoutPrefix(prefix(), request.name), request.parameters, out);
        });
    else
        throw Disconnected("a call that no driver of the tests sends");
}

/// Runs the statement that is the first parameter, with the values behind it, which the second one declares.
void Session::execute(const RpcRequest& request) {
    const auto& parameters = request.parameters;
    if (parameters.empty())
        throw Disconnected("a call without its statement");
    const std::string asked = withoutPrefix(prefix(), parameters[0].value.asText());
    const std::string text = parameters.size() < 2 ? asked
                                                   : withValues(asked, parameters[1].value.asText(),
                                                                {parameters.begin() + 2, parameters.end()});
    statement(text, Done::Procedure, [&](Tokens& tokens) {
        m_interpreter->run(text, tokens, Done::InProcedure, true);
        tokens.returnStatus(0);
        tokens.done(Done::Procedure, false);
    });
}

void Session::transaction(const TransactionRequest& request) {
    const char* const text = request.kind == TransactionRequest::Begin    ? "begin"
                             : request.kind == TransactionRequest::Commit ? "commit"
                                                                          : "rollback";
    statement(text, Done::Batch, [&](Tokens& tokens) { m_interpreter->transaction(request, tokens); });
}

void Session::statement(const std::string& text, Done kind, const Work& work) {
    Fault fault;
    if (!isHousekeeping(text)) {
        m_shared.log.add(m_number, text);
        fault = m_shared.faults.next(text, false);
    }
    Tokens tokens;
    answer(fault, tokens, kind, work);
}

void Session::answer(const Fault& fault, Tokens& tokens, Done kind, const Work& work) {
    try {
        obeyBefore(fault);
        work(tokens);
    } catch (const ado::Error& error) {
        tokens.error(error);
        if (error.number() == deadlockVictim && m_interpreter)
            m_interpreter->rollBack(tokens);
        tokens.doneFailed(kind);
    } catch (const GivenUp&) {
        tokens.clear();
        tokens.doneGivenUp();
    }
    send(fault, tokens);
}

void Session::obeyBefore(const Fault& fault) {
    switch (fault.kind) {
    case Fault::Kind::DropBefore:
        throw Disconnected("a fault");
    case Fault::Kind::Never:
        while (true)
            m_channel.read();
    case Fault::Kind::Slow:
        wait(std::chrono::milliseconds{std::atol(fault.argument.c_str())});
        return;
    case Fault::Kind::Error:
        throw errorOf(fault.argument);
    default:
        return;
    }
}

void Session::send(const Fault& fault, const Tokens& tokens) {
    constexpr std::string_view noise = "\x13\x37 this is no answer of a server \xFF\xFE\x01\x02\x03";
    switch (fault.kind) {
    case Fault::Kind::DropAfter:
        throw Disconnected("a fault");
    case Fault::Kind::DropWithin:
        m_channel.write(std::string_view{tokens.bytes()}.substr(0, tokens.bytes().size() / 2), false);
        throw Disconnected("a fault");
    case Fault::Kind::Garbage:
        if (fault.argument == "raw")
            m_channel.socket().write(noise);
        else
            m_channel.write(noise);
        return;
    default:
        m_channel.write(tokens.bytes());
    }
}

void Session::wait(std::chrono::milliseconds time) {
    if (m_channel.attentionWithin(time))
        throw GivenUp();
}

/// Asked while the engine works, which lets no exception through: a client that is gone is noticed by the next reading.
bool Session::isGivenUp() {
    try {
        return m_channel.attentionWithin({});
    } catch (const Disconnected&) {
        m_channel.socket().shutDown();
        return true;
    }
}

} // namespace opd::testserver
