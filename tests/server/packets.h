#pragma once

#include "server/wire.h"

#include <chrono>
#include <utility>

namespace opd::testserver {

/// An open socket, closed with its scope.
class Socket {
  public:
    explicit Socket(int descriptor) : m_descriptor(descriptor) {}
    Socket(Socket&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Socket& operator=(Socket&&) = delete;
    ~Socket();

    int descriptor() const { return m_descriptor; }

    /// Throws Disconnected when the other side is gone.
    std::string read(std::size_t count) const;
    void write(std::string_view bytes) const;

    /// True as soon as there is something to read, or the other side is gone; false when the time is over.
    bool readableWithin(std::chrono::milliseconds time) const;

    /// Ends every reading and writing, of other threads too.
    void shutDown() const;

  private:
    int m_descriptor;
};

/// What a client sends, its packets joined.
struct Message {
    enum class Type : std::uint8_t { Batch = 1, Rpc = 3, Attention = 6, Transaction = 14, Login = 16, Prelogin = 18 };

    Type type;
    std::string content;
};

/// Messages over a socket. Throws Disconnected like the socket.
class Channel {
  public:
    explicit Channel(Socket& socket) : m_socket(socket) {}

    Message read() const;

    /// Sends an answer, split into packets. One that is not `whole` breaks off: its last packet never comes.
    void write(std::string_view tokens, bool whole = true) const;

    /// Waits, and is true as soon as the client asks to give the running statement up.
    bool attentionWithin(std::chrono::milliseconds time) const;

    const Socket& socket() const { return m_socket; }
    std::size_t packetSize() const { return m_packetSize; }
    void setPacketSize(std::size_t size) { m_packetSize = size; }

  private:
    Socket& m_socket;
    std::size_t m_packetSize = 4096;
};

} // namespace opd::testserver
