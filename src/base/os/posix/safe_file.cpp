#include "base/os/safe_file.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace opd::os {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t ownerAndGroup = ownerOnly | S_IRGRP | S_IWGRP;
constexpr mode_t everybodyElse = S_IRWXG | S_IRWXO;

[[noreturn]] void failWriting(const std::filesystem::path& file, int error) {
    throw std::runtime_error("Cannot write \"" + file.string() + "\": " + std::generic_category().message(error) + ".");
}

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

/// An open file that other writers see to be in use; closed with its scope.
class LockedFile {
  public:
    explicit LockedFile(int descriptor) : m_descriptor(descriptor) {}
    ~LockedFile() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    bool lock(int how) const { return ::flock(m_descriptor, how) == 0; }

    /// False when another writer took the file for a left one before it was locked, and removed it.
    bool stillThere() const {
        struct stat found {};
        return ::fstat(m_descriptor, &found) == 0 && found.st_nlink > 0;
    }

    void write(const std::string& content, const std::filesystem::path& target) const {
        for (std::size_t done = 0; done < content.size();) {
            const ssize_t written = ::write(m_descriptor, content.data() + done, content.size() - done);
            if (written < 0 && errno != EINTR)
                failWriting(target, errno);
            done += written > 0 ? static_cast<std::size_t>(written) : 0;
        }
        if (::fsync(m_descriptor) != 0)
            failWriting(target, errno);
    }

  private:
    int m_descriptor;
};

constexpr const char* draftSuffix = ".new";

/// The name of a draft that no other thread of this process uses.
std::filesystem::path draftOf(const std::filesystem::path& target) {
    static std::atomic<unsigned> count{0};
    return target.string() + draftSuffix + std::to_string(::getpid()) + "-" + std::to_string(++count);
}

bool isDraftOf(const std::filesystem::path& target, const std::filesystem::path& file) {
    const std::string name = file.filename().string();
    const std::string start = target.filename().string() + draftSuffix;
    return name.starts_with(start) && name.size() > start.size() &&
           name.find_first_not_of("0123456789-", start.size()) == std::string::npos;
}

/// Removes the drafts of writers that are gone: a living one holds the lock of its draft.
void removeLeftDrafts(const std::filesystem::path& target) {
    std::error_code unimportant;
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    for (std::filesystem::directory_iterator entry{folder, unimportant}, end; !unimportant && entry != end;
         entry.increment(unimportant)) {
        if (!isDraftOf(target, entry->path()))
            continue;
        std::error_code ignored;
        const LockedFile left(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (left.isOpen() && left.lock(LOCK_EX | LOCK_NB))
            std::filesystem::remove(entry->path(), ignored);
    }
}

/// A file beside its target until it takes the target's place; without that it disappears with its scope.
class Draft {
  public:
    explicit Draft(std::filesystem::path target) : m_target(std::move(target)) {}
    ~Draft() {
        std::error_code unimportant;
        if (!m_file.empty())
            std::filesystem::remove(m_file, unimportant);
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// Writes the content and puts it in the target's place.
    void write(const std::string& content, mode_t mode) {
        for (;;) {
            const std::filesystem::path file = draftOf(m_target);
            const LockedFile draft(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (!draft.isOpen() && errno == EEXIST) // of the same process number on another machine
                continue;
            if (!draft.isOpen())
                failWriting(m_target, errno);
            draft.lock(LOCK_EX); // where there are no locks nothing can take the draft for a left one either
            if (!draft.stillThere())
                continue;
            m_file = file;
            draft.write(content, m_target);
            place();
            return;
        }
    }

  private:
    void place() {
        std::error_code error;
        std::filesystem::rename(m_file, m_target, error);
        if (error)
            failWriting(m_target, error.value());
        m_file.clear();
    }

    std::filesystem::path m_target;
    std::filesystem::path m_file; ///< empty before it is made and after it has taken its place
};

mode_t modeOf(const std::filesystem::path& file) {
    struct stat found {};
    return ::stat(file.c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
}

void makeFolder(const std::filesystem::path& folder, mode_t mode) {
    std::error_code unimportant;
    if (folder.empty() || std::filesystem::is_directory(folder, unimportant))
        return;
    if (folder.has_parent_path() && folder.parent_path() != folder)
        makeFolder(folder.parent_path(), mode);
    if (::mkdir(folder.c_str(), mode) == 0) {
        if ((mode & S_IRWXG) != 0) // what one of its users makes there is the others' as well
            std::ignore = ::chmod(folder.c_str(), modeOf(folder) | S_ISGID);
        return;
    }
    const int error = errno == EEXIST ? ENOTDIR : errno;
    if (!std::filesystem::is_directory(folder, unimportant))
        failWriting(folder, error);
}

void writeByDraft(const std::filesystem::path& target, const std::string& content, mode_t mode) {
    removeLeftDrafts(target);
    Draft(target).write(content, mode);
}

} // namespace

FileTurn::FileTurn(const std::filesystem::path& file) : m_descriptor(-1) {
    makeFolder(file.parent_path(), S_IRWXU);
    const std::string lock = file.string() + ".lock";
    m_descriptor = ::open(lock.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    while (m_descriptor >= 0 && ::flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

FileTurn::~FileTurn() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void writePrivately(const std::filesystem::path& file, const std::string& content) {
    std::error_code error;
    std::filesystem::path target = std::filesystem::weakly_canonical(file, error);
    if (error)
        target = file;
    makeFolder(target.parent_path(), S_IRWXU);
    writeByDraft(target, content, ownerOnly);
}

void writeForGroup(const std::filesystem::path& file, const std::string& content) {
    makeFolderForGroup(file.parent_path());
    writeByDraft(file, content, ownerAndGroup);
}

void makeFolderForGroup(const std::filesystem::path& folder) {
    makeFolder(folder, S_IRWXU | S_IRWXG);
}

void giveToUsersOf(const std::filesystem::path& other, const std::filesystem::path& file) {
    constexpr mode_t readAndWrite = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    constexpr uid_t itsOwn = static_cast<uid_t>(-1);
    struct stat model {};
    // Never through a link, which a user of the folder might have put there.
    const int given = ::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (given < 0)
        return;
    if (::stat(other.c_str(), &model) == 0) {
        if (::fchown(given, model.st_uid, model.st_gid) != 0)
            std::ignore = ::fchown(given, itsOwn, model.st_gid);
        std::ignore = ::fchmod(given, model.st_mode & readAndWrite);
    }
    ::close(given);
}

void refuseUnlessPrivate(const std::filesystem::path& file) {
    struct stat found {};
    if (::stat(file.c_str(), &found) != 0 || (found.st_mode & everybodyElse) == 0)
        return;
    throw std::runtime_error("Others than its owner can read or change \"" + file.string() +
                             "\", which may hold a password. Close it with: chmod 600 \"" + file.string() + "\"");
}

std::filesystem::path configFolder() {
    return userFolder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path dataFolder() {
    return userFolder("XDG_DATA_HOME", ".local/share");
}

} // namespace opd::os
