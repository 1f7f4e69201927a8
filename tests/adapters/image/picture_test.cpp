#include "adapters/image/file_camera.h"
#include "adapters/image/picture_files.h"
#include "support/files.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

namespace opd::adapters {
namespace {

/// Three pixels wide, so that the rows of a bitmap are padded.
Image sample() {
    Image image{3, 2, {}};
    for (int i = 0; i < 18; ++i)
        image.rgb.push_back(static_cast<std::uint8_t>(i * 14));
    return image;
}

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string pngChunk(const std::string& kind, const std::string& content) {
    return bigEndian(static_cast<std::uint32_t>(content.size())) + kind + content + bigEndian(0);
}

std::string png(std::uint32_t width, std::uint32_t height, const std::string& packed) {
    return "\x89PNG\r\n\x1A\n" +
           pngChunk("IHDR", bigEndian(width) + bigEndian(height) + std::string{"\x08\x02\0\0\0", 5}) +
           pngChunk("IDAT", packed) + pngChunk("IEND", {});
}

/// A packed stream that repeats one byte: each 13 bits unpack to 258 bytes.
std::string packedBomb(int repeats) {
    std::string bits = "110"; // the last block, with the standard codes
    bits += "00110000";       // the byte 0
    for (int i = 0; i < repeats; ++i)
        bits += "1100010100000";
    std::string packed = "\x78\x01";
    for (std::size_t at = 0; at + 8 <= bits.size(); at += 8) {
        unsigned char byte = 0;
        for (unsigned bit = 0; bit < 8; ++bit)
            byte = static_cast<unsigned char>(byte | (bits[at + bit] == '1' ? 1U << bit : 0U));
        packed += static_cast<char>(byte);
    }
    return packed;
}

/// A progressive JPEG of the given size that is gone through again and again.
std::string jpeg(const std::string& size, int scans) {
    std::string content = std::string{"\xFF\xD8\xFF\xC2\x00\x0B\x08", 7} + size + std::string{"\x01\x01\x11\x00", 4};
    for (int i = 0; i < scans; ++i)
        content += std::string{"\xFF\xDA\x00\x08\x01\x01\x00\x00\x00\x00", 10};
    return content + "\xFF\xD9";
}

TEST(PictureFiles, WhatIsNoPictureIsRefusedAtOnceWhateverItPromises) {
    const PictureFiles files;
    std::string bitmap = files.encodeBitmap(sample());
    const std::string cut = bitmap.substr(0, 20);
    std::string turned = bitmap;
    turned.replace(22, 4, "\xFE\xFF\xFF\xFF", 4); // two rows from the top on
    EXPECT_EQ(files.decode(turned).height, 2);
    bitmap.replace(18, 8, "\xFF\xFF\0\0\xFF\xFF\0\0", 8);
    const std::string huge{"\xFF\xDC\xFF\xDC", 4};
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& content :
         {std::string{}, std::string{"no picture"}, cut, bitmap, png(65000, 65000, "\x78\x01"),
          png(5001, 5001, "\x78\x01"), png(0x7FFFFFFF, 0x7FFFFFFF, ""), png(1, 1, packedBomb(1'200'000)), jpeg(huge, 1),
          jpeg({"\x13\x00\x13\x00", 4}, 5000)})
        EXPECT_THROW(files.decode(content), std::runtime_error) << content.size();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{10});
}

TEST(FileCamera, GivesEveryPixelOfThePictureThatIsThereNowAndNothingWhereThereIsNone) {
    const PictureFiles files;
    const tests::TemporaryFolder folder;
    const std::filesystem::path file = folder / "camera.bmp";
    FileCamera camera{file, files};
    EXPECT_FALSE(camera.takeStill());
    tests::writeFile(file, files.encodeBitmap(sample()));
    EXPECT_EQ(camera.takeStill(), sample());
    tests::writeFile(file, "no picture");
    EXPECT_FALSE(camera.takeStill());
}

} // namespace
} // namespace opd::adapters
