#include "base/os/open_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace opd::os {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t ownerAndGroup = ownerOnly | S_IRGRP | S_IWGRP;

std::string reasonOf(int error) {
    return error == ELOOP ? "It is a link, and a link is not followed" : std::generic_category().message(error);
}

[[noreturn]] void fail(const std::filesystem::path& file, const std::string& reason) {
    throw std::runtime_error("Cannot write \"" + file.string() + "\": " + reason + ".");
}

/// Opens a plain file for writing. O_NONBLOCK: a pipe without a reader fails instead of waiting for one.
int openedPlain(const std::filesystem::path& file, int flags, mode_t mode) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags, mode);
    if (descriptor < 0)
        fail(file, errno == ENXIO ? "It is no plain file" : reasonOf(errno));
    struct stat found {};
    if (::fstat(descriptor, &found) == 0 && S_ISREG(found.st_mode))
        return descriptor;
    ::close(descriptor);
    fail(file, "It is no plain file");
}

/// False when whoever held the file has finished it between its opening and its locking: it is whole then, and has
/// another name.
bool stillHasName(int descriptor, const std::filesystem::path& file) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(file.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

} // namespace

HeldFile::HeldFile(const std::filesystem::path& file)
    : m_file(file), m_descriptor(openedPlain(file, 0, ownerAndGroup)) {
    const bool isHeld = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
    const bool isOthers = isHeld && !stillHasName(m_descriptor, file);
    if (isHeld && !isOthers && ::ftruncate(m_descriptor, 0) == 0)
        return;
    const int error = isOthers ? EWOULDBLOCK : errno;
    ::close(m_descriptor);
    fail(file, error == EWOULDBLOCK ? "Another program is making it" : reasonOf(error));
}

HeldFile::~HeldFile() {
    ::close(m_descriptor);
}

void HeldFile::fill(const std::filesystem::path& from) const {
    constexpr std::size_t pieceSize = 1U << 16U;
    std::ifstream in(from, std::ios::binary);
    std::vector<char> piece(pieceSize);
    while (in) {
        in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        for (std::streamsize done = 0; done < in.gcount();) {
            const ssize_t written =
                ::write(m_descriptor, piece.data() + done, static_cast<std::size_t>(in.gcount() - done));
            if (written < 0 && errno != EINTR)
                fail(m_file, reasonOf(errno));
            done += std::max<ssize_t>(written, 0);
        }
    }
    if (!in.eof())
        throw std::runtime_error("Cannot read \"" + from.string() + "\": " + reasonOf(errno) + ".");
}

GrowingFile::GrowingFile(std::filesystem::path file)
    : m_file(std::move(file)), m_descriptor(openedPlain(m_file, O_APPEND, ownerOnly)) {
    if (::fchmod(m_descriptor, ownerOnly) == 0 && ::ftruncate(m_descriptor, 0) == 0)
        return;
    const int error = errno;
    ::close(m_descriptor);
    fail(m_file, reasonOf(error));
}

GrowingFile::~GrowingFile() {
    ::close(m_descriptor);
}

void GrowingFile::append(const std::string& content) {
    const off_t before = ::lseek(m_descriptor, 0, SEEK_END);
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t written = ::write(m_descriptor, content.data() + done, content.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            const int error = written == 0 ? ENOSPC : errno;
            if (before >= 0 && ::ftruncate(m_descriptor, before) != 0)
                fail(m_file, reasonOf(error) + "; a part of the last line stands in it");
            fail(m_file, reasonOf(error));
        }
        done += static_cast<std::size_t>(written);
    }
}

} // namespace opd::os
