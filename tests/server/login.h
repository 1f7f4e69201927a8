#pragma once

#include "server/wire.h"

namespace opd::testserver {

/// What a client asks for when it logs in.
struct Login {
    std::size_t packetSize = 0; ///< 0 leaves it to the server
    std::string user;
    std::string password;
    std::string database;
};

/// Reads the login message. Throws Disconnected for a version before 7.4.
Login readLogin(std::string_view content);

/// The answer to the message before the login. Encryption is never supported; when it is `required`, clients that can
/// do without it are refused.
std::string preloginAnswer(bool encryptionRequired);

} // namespace opd::testserver
