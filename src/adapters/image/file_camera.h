#pragma once

#include "ports/camera/camera.h"

#include <filesystem>

namespace opd::adapters {

/// Stands in for a camera where there is none: every frame is the picture in a file, read anew each time. Without the
/// file, or when it holds no picture, it is a camera that gives nothing.
class FileCamera final : public Camera {
  public:
    FileCamera(std::filesystem::path file, const ImageCodec& images) : m_file(std::move(file)), m_images(images) {}

    std::optional<Image> takeStill() override;

  private:
    std::filesystem::path m_file;
    const ImageCodec& m_images;
};

} // namespace opd::adapters
