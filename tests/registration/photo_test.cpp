#include "registration/form_fixture.h"
#include "support/temporary_folder.h"

#include "registration/save/save_data.h"

#include <fstream>

namespace opd::tests {
namespace {

/// The registration form of a workstation with a folder for pictures.
struct PhotoDesk : FormFixture, testing::Test {
    PhotoDesk() {
        store.set("Pictures", "Folder", (folder / "pictures").string());
        openNewPatient();
        fillRequired();
    }

    ui::Picture& picture() { return form->fields().additional.picPatient; }

    void capture() {
        desktop.work([&](ui::Window& window) {
            form->fields().tabOPD.show(form->fields().additional.page.index());
            desktop.work([](ui::Window& smile) { EXPECT_EQ(smile.caption(), "Smile"); });
            window.click(form->fields().additional.cmdCapture);
            save(window);
        });
        desktop.showModal(form->window());
    }

    void save(ui::Window& window) {
        for (int i = 0; i < messagesOfSave; ++i)
            desktop.answer(ui::Answer::Ok);
        window.click(form->fields().buttons.cmdSave);
        EXPECT_FALSE(window.isOpen());
        EXPECT_TRUE(desktop.allAnswersGiven());
    }

    int messagesOfSave = 1;
    TemporaryFolder folder;
    std::filesystem::path file = folder / "pictures" / "00000012.bmp";
};

TEST_F(PhotoDesk, WithoutACameraNothingIsSaidAndThePictureStaysAsItWas) {
    capture();
    EXPECT_FALSE(std::filesystem::exists(file)) << "an empty box stores nothing";
    openNewPatient();
    fillRequired();
    const auto before = std::make_shared<const Image>(Image{1, 1, {1, 2, 3}});
    picture().setImage(before);
    capture();
    EXPECT_EQ(picture().image(), before);
    EXPECT_TRUE(form->record().PhotoTaken);
    EXPECT_EQ(std::filesystem::file_size(file), 1U) << "what the box holds is stored all the same";
}

TEST_F(PhotoDesk, AFolderThatCannotBeWrittenIsToldAfterTheVisitIsSaved) {
    std::ofstream(folder.path() / "pictures") << "a file where the folder should be";
    camera.frame = Image{4, 2, std::vector<std::uint8_t>(24)};
    messagesOfSave = 2;
    capture();
    ASSERT_EQ(desktop.messages.size(), 2U);
    EXPECT_NE(desktop.messages[0].text.find("was registered as Hosp. # (00000012)"), std::string::npos);
    EXPECT_TRUE(desktop.messages[1].text.starts_with("The photograph could not be stored. Cannot write"))
        << desktop.messages[1].text;
    EXPECT_NE(provider->log.find("set isWalkIn = '0'"), std::string::npos) << "the save goes on to its end";
}

} // namespace
} // namespace opd::tests
