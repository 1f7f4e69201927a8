#include "adapters/image/picture_files.h"

#include <cstdlib>

namespace {

/// The largest block that a picture within the limits needs, and what a packed one may grow to while it is unpacked.
constexpr std::size_t largestBlock = 256UL * 1024 * 1024;

void* allocatePixels(std::size_t size) {
    return size > largestBlock ? nullptr : std::malloc(size);
}

void* growPixels(void* block, std::size_t size) {
    return size > largestBlock ? nullptr : std::realloc(block, size);
}

} // namespace

#define STBI_MALLOC(size) allocatePixels(size)
#define STBI_REALLOC(block, size) growPixels(block, size)
#define STBI_FREE(block) std::free(block)
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

#include <climits>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace opd::adapters {

namespace {

constexpr int bytesPerPixel = 3;

void append(void* content, void* bytes, int count) {
    static_cast<std::string*>(content)->append(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
}

/// A picture of so many is decoded in well under a second; cameras make no larger ones.
constexpr long long mostPixels = 25'000'000;

/// A progressive JPEG is gone through once for each of its scans; real ones have about ten.
constexpr int mostScans = 64;

[[noreturn]] void refuse(const std::string& reason) {
    throw std::runtime_error("The picture cannot be read: " + reason + ".");
}

const stbi_uc* bytesOf(const std::string& content) {
    return reinterpret_cast<const stbi_uc*>(content.data());
}

int scansOf(const std::string& content) {
    constexpr std::string_view startOfScan = "\xFF\xDA";
    int scans = 0;
    if (content.starts_with("\xFF\xD8"))
        for (std::size_t at = content.find(startOfScan); at != std::string::npos;
             at = content.find(startOfScan, at + 2))
            ++scans;
    return scans;
}

/// Looks at the head of the file alone.
void refuseLarge(const std::string& content) {
    int width = 0;
    int height = 0;
    int channels = 0;
    if (content.size() > INT_MAX)
        refuse("the file is too large");
    if (stbi_info_from_memory(bytesOf(content), static_cast<int>(content.size()), &width, &height, &channels) == 0)
        refuse(stbi_failure_reason());
    const long long rows = std::llabs(height); // a bitmap that begins at its top has a negative one
    if (width < 1 || rows < 1 || width * rows > mostPixels)
        refuse("it has " + std::to_string(width) + " x " + std::to_string(rows) + " pixels, which is too large");
    if (scansOf(content) > mostScans)
        refuse("it has more scans than any camera writes");
}

} // namespace

Image PictureFiles::decode(const std::string& content) const {
    refuseLarge(content);
    Image image;
    int channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(bytesOf(content), static_cast<int>(content.size()), &image.width, &image.height,
                              &channels, bytesPerPixel),
        stbi_image_free);
    if (!pixels)
        refuse(stbi_failure_reason());
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
