#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace opd {

/// A still picture: `height` rows of `width` pixels from the top left on, three bytes (red, green, blue) a pixel.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;

    bool isEmpty() const { return width == 0 || height == 0; }
    bool operator==(const Image&) const = default;
};

/// Pictures as they are shown by several places at once: shared, never changed.
using SharedImage = std::shared_ptr<const Image>;

/// What knows the formats of picture files.
class ImageCodec {
  public:
    virtual ~ImageCodec() = default;

    /// The picture in the content of a file (bitmap, PNG or JPEG). Throws std::runtime_error when it is none.
    virtual Image decode(const std::string& content) const = 0;

    /// The content of a bitmap file. Throws std::runtime_error.
    virtual std::string encodeBitmap(const Image& image) const = 0;
};

} // namespace opd
