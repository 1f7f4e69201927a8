#include "adapters/image/file_camera.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace opd::adapters {

std::optional<Image> FileCamera::takeStill() {
    std::ifstream stream(m_file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    try {
        return m_images.decode({std::istreambuf_iterator<char>(stream), {}});
    } catch (const std::runtime_error&) { // a camera that fails says nothing
        return std::nullopt;
    }
}

} // namespace opd::adapters
