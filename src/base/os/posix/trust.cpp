#include "base/os/trust.h"

#include "base/os/library.h"

#include <array>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace opd::os {

namespace {

constexpr std::size_t entrySize = 16384;

/// True for the group that has the user's name and nobody else in it.
bool isOfUserAlone(gid_t group) {
    std::array<char, entrySize> userText{};
    std::array<char, entrySize> groupText{};
    passwd user{};
    ::group entry{};
    passwd* foundUser = nullptr;
    ::group* foundGroup = nullptr;
    if (::getpwuid_r(::geteuid(), &user, userText.data(), userText.size(), &foundUser) != 0 || foundUser == nullptr ||
        ::getgrgid_r(group, &entry, groupText.data(), groupText.size(), &foundGroup) != 0 || foundGroup == nullptr)
        return false;
    const std::string name = user.pw_name;
    if (user.pw_gid != group || name != entry.gr_name)
        return false;
    for (char** member = entry.gr_mem; *member != nullptr; ++member)
        if (name != *member)
            return false;
    return true;
}

bool isTrusted(const struct stat& found, bool sharedFolder) {
    if (found.st_uid != 0 && found.st_uid != ::geteuid())
        return false;
    if (sharedFolder && (found.st_mode & S_ISVTX) != 0)
        return true;
    return (found.st_mode & S_IWOTH) == 0 && ((found.st_mode & S_IWGRP) == 0 || isOfUserAlone(found.st_gid));
}

} // namespace

std::filesystem::path trustedLibrary(const std::filesystem::path& file) {
    std::error_code missing;
    std::filesystem::path real = std::filesystem::canonical(file, missing);
    if (missing)
        throw LibraryError("The library \"" + file.string() + "\" is missing.");
    for (std::filesystem::path part = real;; part = part.parent_path()) {
        struct stat found {};
        if (::stat(part.c_str(), &found) != 0 || !isTrusted(found, part != real && part != real.parent_path()))
            throw LibraryError("The library \"" + real.string() + "\" is not used, because others than you and the " +
                               "administrator can change \"" + part.string() + "\".");
        if (part == part.parent_path())
            return real;
    }
}

} // namespace opd::os
