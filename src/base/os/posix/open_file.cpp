#include "base/os/open_file.h"

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

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

} // namespace

HeldFile::HeldFile(const std::filesystem::path& file) : m_descriptor(openedPlain(file, 0, ownerAndGroup)) {
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 && ::ftruncate(m_descriptor, 0) == 0)
        return;
    const int error = errno;
    ::close(m_descriptor);
    fail(file, error == EWOULDBLOCK ? "Another program is making it" : reasonOf(error));
}

HeldFile::~HeldFile() {
    ::close(m_descriptor);
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
