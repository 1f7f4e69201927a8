#pragma once

#include "server/faults.h"
#include "server/interpreter.h"
#include "server/login.h"
#include "server/packets.h"
#include "server/server.h"

#include <optional>

namespace opd::testserver {

/// What the sessions of a server share.
struct Shared {
    Shared(const Options& chosen, const Clock& clock);

    Options options;
    std::shared_ptr<ado::Provider> provider;
    Faults faults;
    StatementLog log;
};

/// One connection, from its first message to its last.
class Session {
  public:
    Session(Shared& shared, Socket& socket, int number) : m_shared(shared), m_channel(socket), m_number(number) {}

    /// Serves until the client goes, or a fault drops it.
    void run();

  private:
    using Work = std::function<void(Tokens&)>;

    bool logIn();
    bool admit(const Login& login, Tokens& tokens);
    void serve(const Message& message);
    void batch(const std::string& text);
    void rpc(const RpcRequest& request);
    void execute(const RpcRequest& request);
    void transaction(const TransactionRequest& request);
    void statement(const std::string& text, Done kind, const Work& work);
    void answer(const Fault& fault, Tokens& tokens, Done kind, const Work& work);
    void obeyBefore(const Fault& fault);
    void send(const Fault& fault, const Tokens& tokens);
    void wait(std::chrono::milliseconds time);
    bool isGivenUp();
    const std::string& prefix() const { return m_shared.options.standInPrefix; }

    Shared& m_shared;
    Channel m_channel;
    int m_number;
    std::optional<Engine> m_engine;
    std::optional<Interpreter> m_interpreter;
};

} // namespace opd::testserver
