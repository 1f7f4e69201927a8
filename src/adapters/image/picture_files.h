#pragma once

#include "ports/image/image.h"

namespace opd::adapters {

/// Reads bitmap, PNG and JPEG files and writes bitmaps.
class PictureFiles final : public ImageCodec {
  public:
    Image decode(const std::string& content) const override;
    std::string encodeBitmap(const Image& image) const override;
};

} // namespace opd::adapters
