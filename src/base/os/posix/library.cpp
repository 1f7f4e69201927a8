#include "base/os/library.h"

#include <cstring>
#include <dlfcn.h>

namespace opd::os {

namespace {

std::string loaderReason() {
    const char* reason = ::dlerror();
    return reason != nullptr ? reason : "unknown reason";
}

} // namespace

Library::Library(const std::filesystem::path& file) : m_file(file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        throw LibraryError("The library \"" + file.string() + "\" is missing.");
    // Each library says for itself whether its names are looked up at once: all of this program do.
    m_handle = ::dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
    if (m_handle == nullptr)
        throw LibraryError("The library \"" + file.string() + "\" cannot be opened: " + loaderReason() + ".");
}

void* Library::address(const char* name) const {
    void* found = ::dlsym(m_handle, name);
    if (found == nullptr)
        throw LibraryError("The library \"" + m_file.string() + "\" has no export \"" + name + "\".");
    return found;
}

std::filesystem::path libraryOf(const void* address) {
    Dl_info info{};
    if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr)
        throw LibraryError("The library of an address is not known.");
    std::error_code ignored;
    // The loader knows the program itself by the word that it was called by, which may be found through PATH alone.
    const bool isLibrary = std::strchr(info.dli_fname, '/') != nullptr;
    const std::filesystem::path file =
        std::filesystem::weakly_canonical(isLibrary ? info.dli_fname : "/proc/self/exe", ignored);
    return ignored ? std::filesystem::path{info.dli_fname} : file;
}

std::string libraryFileName(const std::string& name) {
    return "lib" + name + ".so";
}

} // namespace opd::os
