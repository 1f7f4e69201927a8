#include "adapters/image/file_camera.h"
#include "adapters/image/picture_files.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace opd::adapters {
namespace {

/// Three pixels wide, so that the rows of a bitmap are padded.
Image sample() {
    Image image{3, 2, {}};
    for (int i = 0; i < 18; ++i)
        image.rgb.push_back(static_cast<std::uint8_t>(i * 14));
    return image;
}

TEST(PictureFiles, ABitmapHoldsEveryPixelAndIsOneThatOthersRead) {
    const PictureFiles files;
    const std::string bitmap = files.encodeBitmap(sample());
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    EXPECT_EQ(files.decode(bitmap), sample());
}

TEST(PictureFiles, WhatIsNoPictureIsRefused) {
    const PictureFiles files;
    const std::string bitmap = files.encodeBitmap(sample());
    for (const std::string& content : {std::string{}, std::string{"no picture"}, bitmap.substr(0, 20)})
        EXPECT_THROW(files.decode(content), std::runtime_error) << content.size();
}

TEST(FileCamera, GivesThePictureAsItIsNowAndNothingWhereThereIsNone) {
    const PictureFiles files;
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("camera-" + std::to_string(getpid()) + ".bmp");
    FileCamera camera{file, files};
    EXPECT_FALSE(camera.takeStill());
    std::ofstream(file, std::ios::binary) << files.encodeBitmap(sample());
    EXPECT_EQ(camera.takeStill(), sample());
    std::ofstream(file, std::ios::binary) << "no picture";
    EXPECT_FALSE(camera.takeStill());
    std::filesystem::remove(file);
}

} // namespace
} // namespace opd::adapters
