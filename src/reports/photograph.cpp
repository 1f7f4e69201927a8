#include "reports/photograph.h"

#include "data/connection_settings.h"
#include "platform/ado/provider.h"
#include "platform/settings/safe_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace opd::reports {

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
    std::string file = location + "\\" + hospNum + ".bmp";
    // The shown location has the separators of one system, and the file lies on any.
    std::replace(file.begin(), file.end(), '\\', static_cast<char>(std::filesystem::path::preferred_separator));
    return std::filesystem::path{file}.lexically_normal();
}

void storePhotograph(const ImageCodec& images, const Image& image, const std::filesystem::path& file) {
    if (file.parent_path() == file.root_path())
        throw std::runtime_error("No folder is set for the photographs.");
    settings::writeWhole(file, images.encodeBitmap(image));
}

SharedImage storedPhotograph(const ImageCodec& images, const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return nullptr;
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    try {
        return std::make_shared<const Image>(images.decode(content));
    } catch (const std::runtime_error&) { // a damaged picture is as good as none
        return nullptr;
    }
}

} // namespace opd::reports
