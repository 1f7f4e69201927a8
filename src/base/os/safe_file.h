#pragma once

#include <filesystem>
#include <string>

/// Files that are written whole or not at all, and who may read them. The one place that speaks to the operating system
/// about file modes.
namespace opd::os {

/// Puts the content in place of the file as one step, so that a reader sees the old or the new file whole; makes the
/// folders above it, for the user alone. The file gets mode 0600; a link stays a link, and what it leads to is
/// replaced. Drafts that a killed writer of the same file has left are removed. Throws std::runtime_error.
void writePrivately(const std::filesystem::path& file, const std::string& content);

/// The same for a file that the user's group shares: it gets mode 0660 and the folders that are made 0770, less what
/// the umask takes away. A link in the file's place is replaced, never followed.
void writeForGroup(const std::filesystem::path& file, const std::string& content);

/// A turn at a file that several processes change: who reads it and writes it again holds one meanwhile, so that no
/// change is lost. It is a lock on "FILE.lock", which stays there. Where that cannot be made nobody waits: the file
/// cannot be written either, and that says why.
class FileTurn {
  public:
    explicit FileTurn(const std::filesystem::path& file);
    ~FileTurn();
    FileTurn(const FileTurn&) = delete;
    FileTurn& operator=(const FileTurn&) = delete;

  private:
    int m_descriptor;
};

/// Makes a folder and those above it, each new one with mode 0770 less what the umask takes away; what its users make
/// in there is the folder's group's. Throws std::runtime_error.
void makeFolderForGroup(const std::filesystem::path& folder);

/// Gives a file the owner, the group and the rights to read and write that another, or a folder, has, as far as this
/// user may: an administrator's file is of use to those who work with it.
void giveToUsersOf(const std::filesystem::path& other, const std::filesystem::path& file);

/// Throws std::runtime_error, with the command that mends it, for a file that anybody but its owner may read or write.
/// One that is missing is private.
void refuseUnlessPrivate(const std::filesystem::path& file);

/// The user's own folder for settings ($XDG_CONFIG_HOME or ~/.config) and for data ($XDG_DATA_HOME or ~/.local/share).
/// Throws std::runtime_error when the user has no home folder.
std::filesystem::path configFolder();
std::filesystem::path dataFolder();

} // namespace opd::os
