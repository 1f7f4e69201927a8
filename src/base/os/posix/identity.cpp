#include "base/os/identity.h"

#include <array>
#include <pwd.h>
#include <unistd.h>

namespace opd::os {

namespace {

constexpr std::size_t longestRecord = 16384;
constexpr std::size_t longestHostName = 256;

} // namespace

std::string loginName() {
    passwd user{};
    passwd* found = nullptr;
    std::array<char, longestRecord> record{};
    ::getpwuid_r(::geteuid(), &user, record.data(), record.size(), &found);
    return found == nullptr ? std::to_string(::geteuid()) : found->pw_name;
}

std::string hostName() {
    std::array<char, longestHostName> name{};
    ::gethostname(name.data(), name.size() - 1);
    return name.data();
}

long processNumber() {
    return ::getpid();
}

} // namespace opd::os
