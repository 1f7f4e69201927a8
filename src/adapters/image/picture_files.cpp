#include "adapters/image/picture_files.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_BMP
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_NO_STDIO
#include <stb/stb_image.h>
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

#include <stdexcept>

namespace opd::adapters {

namespace {

constexpr int bytesPerPixel = 3;

void append(void* content, void* bytes, int count) {
    static_cast<std::string*>(content)->append(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
}

} // namespace

Image PictureFiles::decode(const std::string& content) const {
    Image image;
    int channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(content.data()), static_cast<int>(content.size()),
                              &image.width, &image.height, &channels, bytesPerPixel),
        stbi_image_free);
    if (!pixels)
        throw std::runtime_error(std::string{"The picture cannot be read: "} + stbi_failure_reason() + ".");
    const auto count = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * bytesPerPixel;
    image.rgb.assign(pixels.get(), pixels.get() + count);
    return image;
}

std::string PictureFiles::encodeBitmap(const Image& image) const {
    std::string content;
    if (stbi_write_bmp_to_func(append, &content, image.width, image.height, bytesPerPixel, image.rgb.data()) == 0)
        throw std::runtime_error("The picture cannot be written as a bitmap.");
    return content;
}

} // namespace opd::adapters
