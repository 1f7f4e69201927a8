#include "server/server.h"

#include "server/session.h"

#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <list>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>

namespace opd::testserver {

namespace {

[[noreturn]] void failListening() {
    throw std::runtime_error("The test server cannot listen: " + std::generic_category().message(errno) + ".");
}

Socket listening(std::uint16_t port) {
    constexpr int waitingClients = 128;
    Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int on = 1;
    ::setsockopt(socket.descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(socket.descriptor(), waitingClients) != 0)
        failListening();
    return socket;
}

} // namespace

class Server::Listener {
  public:
    Listener(const Options& options, const Clock& clock)
        : shared(options, clock), m_socket(listening(options.port)), m_thread([this] { accept(); }) {}

    ~Listener() {
        m_socket.shutDown();
        m_thread.join();
        drop();
        m_connections.clear(); // joins their threads
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::uint16_t port() const {
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        ::getsockname(m_socket.descriptor(), reinterpret_cast<sockaddr*>(&address), &size);
        return ntohs(address.sin_port);
    }

    void drop() {
        const std::lock_guard guard(m_mutex);
        for (const Connection& connection : m_connections)
            connection.socket.shutDown();
    }

    Shared shared;

  private:
    struct Connection {
        explicit Connection(int descriptor) : socket(descriptor) {}

        Socket socket;
        std::atomic<bool> isDone = false;
        std::jthread thread; ///< ends before what it uses
    };

    void accept() {
        for (int number = 1;; ++number) {
            const int client = ::accept4(m_socket.descriptor(), nullptr, nullptr, SOCK_CLOEXEC);
            if (client < 0)
                return;
            const int on = 1;
            ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
            const std::lock_guard guard(m_mutex);
            m_connections.remove_if([](const Connection& connection) { return connection.isDone.load(); });
            Connection& connection = m_connections.emplace_back(client);
            connection.thread = std::jthread([this, &connection, number] { serve(connection, number); });
        }
    }

    void serve(Connection& connection, int number) {
        try {
            Session(shared, connection.socket, number).run();
        } catch (const Disconnected&) { // how every session ends
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "Connection %d: %s\n", number, failure.what());
        }
        connection.socket.shutDown();
        connection.isDone = true;
    }

    std::mutex m_mutex; ///< guards the list
    std::list<Connection> m_connections;
    Socket m_socket;
    std::thread m_thread; // the last member: it uses the others
};

Server::Server(const Options& options, const Clock& clock) : m_listener(std::make_unique<Listener>(options, clock)) {}
Server::~Server() = default;

std::uint16_t Server::port() const {
    return m_listener->port();
}

void Server::addFault(const std::string& fault) {
    m_listener->shared.faults.add(fault);
}

void Server::clearFaults() {
    m_listener->shared.faults.clear();
}

std::vector<Received> Server::received() const {
    return m_listener->shared.log.all();
}

void Server::forgetReceived() {
    m_listener->shared.log.clear();
}

void Server::dropAll() {
    m_listener->drop();
}

} // namespace opd::testserver
