#include "adapters/image/file_camera.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace opd::adapters {

std::optional<Image> FileCamera::takeStill() {
    std::error_code missing;
    if (!std::filesystem::is_regular_file(m_file, missing))
        return std::nullopt;
    std::ifstream stream(m_file, std::ios::binary);
    try {
        return m_images.decode({std::istreambuf_iterator<char>(stream), {}});
    } catch (const std::runtime_error&) { // a camera that fails says nothing
        return std::nullopt;
    }
}

} // namespace opd::adapters
