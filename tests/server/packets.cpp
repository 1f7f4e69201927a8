#include "server/packets.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace opd::testserver {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t longestMessage = 16U << 20U;
constexpr std::uint8_t lastPacket = 0x01;
constexpr char answerType = 4;

} // namespace

Socket::~Socket() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::string Socket::read(std::size_t count) const {
    std::string bytes(count, '\0');
    for (std::size_t done = 0; done < count;) {
        const ssize_t got = ::recv(m_descriptor, bytes.data() + done, count - done, 0);
        if (got == 0 || (got < 0 && errno != EINTR))
            throw Disconnected("the client is gone");
        done += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return bytes;
}

void Socket::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(m_descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR)
            throw Disconnected("the client is gone");
        bytes.remove_prefix(sent > 0 ? static_cast<std::size_t>(sent) : 0);
    }
}

bool Socket::readableWithin(std::chrono::milliseconds time) const {
    pollfd waited{m_descriptor, POLLIN, 0};
    return ::poll(&waited, 1, static_cast<int>(time.count())) > 0;
}

void Socket::shutDown() const {
    ::shutdown(m_descriptor, SHUT_RDWR);
}

Message Channel::read() const {
    Message message{};
    for (bool last = false; !last;) {
        const std::string header = m_socket.read(headerSize);
        const auto status = static_cast<std::uint8_t>(header[1]);
        const std::size_t size = std::size_t{static_cast<std::uint8_t>(header[2])} << 8U |
                                 static_cast<std::uint8_t>(header[3]); // the one number with its high byte first
        if (size < headerSize || message.content.size() + size > longestMessage)
            throw Disconnected("a packet of no possible size");
        message.type = static_cast<Message::Type>(header[0]);
        message.content += m_socket.read(size - headerSize);
        last = (status & lastPacket) != 0;
    }
    return message;
}

void Channel::write(std::string_view tokens, bool whole) const {
    std::string packets;
    std::uint8_t number = 0;
    do {
        const std::string_view part = tokens.substr(0, m_packetSize - headerSize);
        tokens.remove_prefix(part.size());
        const std::size_t size = part.size() + headerSize;
        packets += answerType;
        packets += static_cast<char>(tokens.empty() && whole ? lastPacket : 0);
        packets += static_cast<char>(size >> 8U);
        packets += static_cast<char>(size);
        packets += {'\0', '\0', static_cast<char>(++number), '\0'};
        packets += part;
    } while (!tokens.empty());
    m_socket.write(packets);
}

bool Channel::attentionWithin(std::chrono::milliseconds time) const {
    if (!m_socket.readableWithin(time))
        return false;
    if (read().type != Message::Type::Attention)
        throw Disconnected("a request before the answer to the last one");
    return true;
}

} // namespace opd::testserver
