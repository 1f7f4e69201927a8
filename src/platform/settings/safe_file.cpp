#include "platform/settings/safe_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace opd::settings {

namespace {

[[noreturn]] void failWriting(const std::filesystem::path& file, int error) {
    throw std::runtime_error("Cannot write \"" + file.string() + "\": " + std::generic_category().message(error) + ".");
}

/// An open file, closed with its scope.
class File {
  public:
    File(int descriptor, std::filesystem::path path) : m_descriptor(descriptor), m_path(std::move(path)) {
        if (m_descriptor < 0)
            failWriting(m_path, errno);
    }
    ~File() { ::close(m_descriptor); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    void restrict() {
        if (::fchmod(m_descriptor, S_IRUSR | S_IWUSR) != 0)
            failWriting(m_path, errno);
    }

    void write(const std::string& content) {
        std::size_t done = 0;
        while (done < content.size()) {
            const ssize_t written = ::write(m_descriptor, content.data() + done, content.size() - done);
            if (written < 0 && errno != EINTR)
                failWriting(m_path, errno);
            done += written > 0 ? static_cast<std::size_t>(written) : 0;
        }
        if (::fsync(m_descriptor) != 0)
            failWriting(m_path, errno);
    }

  private:
    int m_descriptor;
    std::filesystem::path m_path;
};

std::filesystem::path userFolder(const char* variable, const char* belowHome) {
    // A relative path is to be ignored in these variables.
    const char* named = std::getenv(variable);
    if (named != nullptr && named[0] == '/')
        return named;
    const char* home = std::getenv("HOME");
    if (home == nullptr || home[0] != '/')
        throw std::runtime_error(std::string{"Neither "} + variable + " nor HOME names a folder of the user.");
    return std::filesystem::path{home} / belowHome;
}

} // namespace

namespace {

/// A file beside its target until it takes the target's place; without that it disappears with its scope.
class Draft {
  public:
    explicit Draft(const std::filesystem::path& target)
        : m_target(target), m_file(target.string() + ".new" + std::to_string(::getpid())) {
        std::error_code unimportant; // a draft of a process that was killed may have been left here
        std::filesystem::remove(m_file, unimportant);
    }
    ~Draft() {
        std::error_code unimportant;
        if (!m_placed)
            std::filesystem::remove(m_file, unimportant);
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    void write(const std::string& content, mode_t mode) {
        File(::open(m_file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode), m_target).write(content);
    }

    void place() {
        std::error_code error;
        std::filesystem::rename(m_file, m_target, error);
        if (error)
            failWriting(m_target, error.value());
        m_placed = true;
    }

  private:
    std::filesystem::path m_target;
    std::filesystem::path m_file;
    bool m_placed = false;
};

void writeByDraft(const std::filesystem::path& file, const std::string& content, mode_t mode) {
    // A link stays a link: what it leads to is replaced.
    std::error_code error;
    std::filesystem::path target = std::filesystem::weakly_canonical(file, error);
    if (error)
        target = file;
    if (target.has_parent_path())
        std::filesystem::create_directories(target.parent_path(), error);
    if (error)
        failWriting(target, error.value());
    Draft draft(target);
    draft.write(content, mode);
    draft.place();
}

} // namespace

void writePrivately(const std::filesystem::path& file, const std::string& content) {
    writeByDraft(file, content, S_IRUSR | S_IWUSR);
}

void writeWhole(const std::filesystem::path& file, const std::string& content) {
    writeByDraft(file, content, S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH);
}

void makePrivate(const std::filesystem::path& file) {
    File(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR), file).restrict();
}

std::filesystem::path configFolder() {
    return userFolder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path dataFolder() {
    return userFolder("XDG_DATA_HOME", ".local/share");
}

} // namespace opd::settings
