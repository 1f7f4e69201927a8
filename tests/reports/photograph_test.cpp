#include "support/files.h"
#include "support/full_disk.h"
#include "support/test_session.h"

#include "reports/photograph.h"
#include "reports/web_cam_capture.h"

#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace opd::tests {
namespace {

struct Photographs : TestSession, testing::Test {
    TemporaryFolder temporary;
    std::filesystem::path folder = temporary / "pictures";
    Image picture{4, 2, std::vector<std::uint8_t>(24)};
};

TEST_F(Photographs, TheFolderIsTheOneSetOrLiesBesideAnEmbeddedHospital) {
    EXPECT_EQ(reports::pictureFolder(store), "");
    EXPECT_EQ(reports::pictureLocation(""), "\\");
    store.set("Connection", "Server", "DBSERVER");
    EXPECT_EQ(reports::pictureFolder(store), "");
    store.set("Connection", "Server", "/srv/hospital");
    EXPECT_EQ(reports::pictureFolder(store), "/srv/hospital/Pictures");
    store.set("Pictures", "Folder", "/srv/photos");
    EXPECT_EQ(reports::pictureLocation(reports::pictureFolder(store)), "/srv/photos\\");
    EXPECT_EQ(reports::pictureLocation("C:\\photos\\"), "C:\\photos\\");
    EXPECT_EQ(reports::photographFile("/srv/photos\\", "00000012"), "/srv/photos/00000012.bmp");
}

TEST_F(Photographs, ReplaceTheOneBeforeUnlessTheDiskIsFull) {
    const std::filesystem::path file = folder / "new" / "00000012.bmp";
    EXPECT_EQ(reports::storedPhotograph(images, file).image, nullptr);
    reports::storePhotograph(images, {1, 1, {0, 0, 0}}, file);
    {
        const FullDisk full(2);
        EXPECT_THROW(reports::storePhotograph(images, picture, file), std::runtime_error);
    }
    EXPECT_EQ(reports::storedPhotograph(images, file).image->width, 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}), 1);
    reports::storePhotograph(images, picture, file);
    EXPECT_EQ(reports::storedPhotograph(images, file).image->width, 8);
}

TEST_F(Photographs, AreForOwnerAndGroupStayInTheirFolderAndClearUpBehindKilledWriters) {
    const mode_t before = umask(002);
    const std::filesystem::path file = folder / "new" / "00000012.bmp";
    reports::storePhotograph(images, picture, file);
    EXPECT_EQ(modeOf(file), 0660U);
    EXPECT_EQ(modeOf(file.parent_path()), 02770U);
    umask(077);
    reports::storePhotograph(images, picture, file);
    EXPECT_EQ(modeOf(file), 0600U) << "the umask is respected";
    umask(before);

    const std::filesystem::path left = file.string() + ".new4711-1";
    const std::filesystem::path living = file.string() + ".new4711-2";
    const std::filesystem::path other = file.string() + ".newer";
    for (const std::filesystem::path& each : {left, living, other})
        std::ofstream(each) << "half";
    const int descriptor = open(living.c_str(), O_RDONLY);
    ASSERT_EQ(flock(descriptor, LOCK_EX), 0);
    std::ofstream(folder / "elsewhere") << "kept";
    std::filesystem::remove(file);
    std::filesystem::create_symlink(folder / "elsewhere", file);
    reports::storePhotograph(images, picture, file);
    close(descriptor);
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_TRUE(std::filesystem::exists(living));
    EXPECT_TRUE(std::filesystem::exists(other));
    EXPECT_EQ(std::filesystem::file_size(folder / "elsewhere"), 4U);

    for (const char* number : {"../../x", "..\\x", "/x", ""})
        EXPECT_EQ(reports::photographFile(folder.string(), number), "") << number;
    EXPECT_THROW(reports::storePhotograph(images, picture, ""), std::runtime_error);
}

TEST_F(Photographs, ACaptureShowsAWindowForTheTimeAndSaysNothingWithoutACamera) {
    EXPECT_EQ(reports::captureStill(session), nullptr);
    camera.frame = picture;
    EXPECT_EQ(*reports::captureStill(session), picture);
    EXPECT_EQ(desktop.shown, (std::vector<std::string>{"frmWebCamCapture~", "frmWebCamCapture~"}));
    EXPECT_TRUE(desktop.messages.empty());
}

} // namespace
} // namespace opd::tests
