#include "reports/photograph.h"

#include "ado/provider.h"
#include "base/os/safe_file.h"
#include "data/connection_settings.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace opd::reports {

namespace {

/// More than the largest bitmap of a camera.
constexpr std::uintmax_t largestFile = 128UL * 1024 * 1024;

bool isPlainName(const std::string& name) {
    return !name.empty() && name.find_first_of(std::string_view{"/\\\0", 3}) == std::string::npos;
}

std::string contentOf(const std::filesystem::path& file) {
    std::error_code unreadable;
    if (std::filesystem::file_size(file, unreadable) > largestFile)
        throw std::runtime_error("The picture cannot be read: the file is too large.");
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("The picture cannot be read: the file cannot be opened.");
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

std::string pictureFolder(const settings::Store& settings) {
    std::string folder = settings.get(data::settingsApplication, pictureSection, pictureFolderKey);
    if (!folder.empty())
        return folder;
    const std::string server = data::connStr(settings, 3, {});
    return ado::isFolder(server) ? (std::filesystem::path{server} / "Pictures").string() : std::string{};
}

std::string pictureLocation(const std::string& folder) {
    return folder.ends_with('\\') ? folder : folder + "\\";
}

std::filesystem::path photographFile(const std::string& location, const std::string& hospNum) {
    if (!isPlainName(hospNum))
        return {};
    std::string file = location + "\\" + hospNum + ".bmp";
    // The shown location has the separators of one system, and the file lies on any.
    std::replace(file.begin(), file.end(), '\\', static_cast<char>(std::filesystem::path::preferred_separator));
    return std::filesystem::path{file}.lexically_normal();
}

void storePhotograph(const ImageCodec& images, const Image& image, const std::filesystem::path& file) {
    if (file.empty())
        throw std::runtime_error("The hospital number cannot name a file.");
    if (file.parent_path() == file.root_path())
        throw std::runtime_error("No folder is set for the photographs.");
    os::writeForGroup(file, images.encodeBitmap(image));
}

StoredPhotograph storedPhotograph(const ImageCodec& images, const std::filesystem::path& file) {
    std::error_code missing;
    if (!std::filesystem::is_regular_file(file, missing))
        return {};
    try {
        return {std::make_shared<const Image>(images.decode(contentOf(file))), {}};
    } catch (const std::runtime_error& damaged) {
        return {nullptr, damaged.what()};
    }
}

} // namespace opd::reports
