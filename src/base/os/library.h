#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

/// Libraries that are opened while the program runs. The one place that speaks to the operating system's loader.
namespace opd::os {

/// Why a library cannot be used, fit to be shown.
class LibraryError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An opened library. It stays open for the life of the process: objects that it made may outlive every handle.
class Library {
  public:
    /// Throws LibraryError with the loader's reason when the file is missing or cannot be opened.
    explicit Library(const std::filesystem::path& file);

    /// The function exported under the name. Throws LibraryError when there is none.
    template <class Function> Function* function(const char* name) const {
        return reinterpret_cast<Function*>(address(name));
    }

  private:
    void* address(const char* name) const;

    std::filesystem::path m_file;
    void* m_handle;
};

/// The file of the library or program that holds the code or data at the address.
std::filesystem::path libraryOf(const void* address);

/// The file name by which this system calls a library: "lib" and ".so" around it here.
std::string libraryFileName(const std::string& name);

} // namespace opd::os
