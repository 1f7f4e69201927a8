#include "registration/form_fixture.h"

namespace opd::tests {

namespace {

using registration::Fields;

/// Opens the form of a new patient and lets `work` be the clerk in it.
void inNewForm(const std::function<void(FormFixture&, ui::Window&, Fields&)>& work) {
    FormFixture desk;
    desk.openNewPatient();
    desk.desktop.work([&](ui::Window& window) { work(desk, window, desk.form->fields()); });
    desk.desktop.showModal(desk.form->window());
    EXPECT_TRUE(desk.desktop.allAnswersGiven());
}

TEST(Form, ANewPatientStartsWithTheServersDate) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        EXPECT_TRUE(fields.header.male.selected());
        EXPECT_EQ(fields.header.dtpAdmDate.text() + " " + fields.header.txtAdmTime.text(), "11/24/2026 02:05 PM");
        EXPECT_EQ(fields.header.txtHospNum.text(), "NEW");
        EXPECT_EQ(fields.header.txtOPDNum.text(), "(TO BE GENERATED)");
        EXPECT_EQ(desk.form->record().VisitKindCode, "N");
        EXPECT_EQ(window.focus(), &fields.header.txtLastName);
        EXPECT_FALSE(fields.personal.cmbPaycode.visible());
        EXPECT_FALSE(fields.additional.letterOfAuthorization.visible());
    });
}

TEST(Form, TheBirthDateKeepsTheFocusUntilItIsRightAndThenDecidesTheAge) {
    const struct {
        const char* birthDate;
        const char* message; ///< null when accepted
        const char* age;
        const char* civilStatus;
    } cases[] = {
        {"", "Please enter the patient's Birthdate", "", "Single"},
        {"02/30/2000", "Invalid date...", "", "Single"},
        {"11/25/2026", "Invalid date...", "", "Single"},
        {"11/24/2026", nullptr, "0", "Child"},
        {"11/23/2012", nullptr, "14", "Single"},
        {"03/07/1980", nullptr, "46", "Single"},
        {"01/01/1850", "Invalid Age...", "176", "Single"},
    };
    for (const auto& entry : cases)
        inNewForm([&](FormFixture& desk, ui::Window& window, Fields& fields) {
            SCOPED_TRACE(entry.birthDate);
            window.setFocus(fields.header.txtBirthDate);
            window.edited(fields.header.txtBirthDate, entry.birthDate);
            if (entry.message != nullptr)
                desk.desktop.answer(ui::Answer::Ok);
            window.pressTab(false);
            EXPECT_EQ(window.focus() == &fields.header.txtBirthDate, entry.message != nullptr);
            EXPECT_EQ(fields.header.txtBirthDate.refusal(), entry.message != nullptr ? entry.message : "");
            if (entry.message != nullptr) {
                EXPECT_EQ(desk.desktop.messages.back().text, entry.message);
            }
            EXPECT_EQ(fields.header.txtAge.text(), entry.age);
            EXPECT_EQ(fields.personal.cboCivilStatus.text(), entry.civilStatus);
            EXPECT_FALSE(fields.header.txtAge.enabled());
        });
}

TEST(Form, AnInfantsAgeInMonthsStandsBesideTheYearsForAsLongAsItIsTrue) {
    inNewForm([](FormFixture&, ui::Window& window, Fields& fields) {
        const std::pair<const char*, const char*> cases[] = {
            {"11/24/2026", "0 days"},    {"10/25/2026", "30 days"},   {"10/24/2026", "1 month"},
            {"12/25/2024", "22 months"}, {"11/25/2024", "23 months"}, {"11/24/2024", ""},
            {"11/25/2025", "11 months"}, {"11/25/2026", ""},          {"1 /  /    ", ""}};
        for (const auto& [birthDate, months] : cases) {
            window.edited(fields.header.txtBirthDate, birthDate);
            EXPECT_EQ(fields.header.lblAgeInMonths.caption(), months) << birthDate;
        }
    });
}

TEST(Form, ABirthDateAfterTodayButNotAfterTheConsultationIsRefusedAsInTheFuture) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        fields.header.dtpAdmDate.setValue({2026, 12, 31, 0, 0, 0});
        window.setFocus(fields.header.txtBirthDate);
        window.edited(fields.header.txtBirthDate, "12/01/2026");
        desk.desktop.answer(ui::Answer::Ok);
        window.pressTab(false);
        EXPECT_EQ(desk.desktop.messages.back().text, "Birthdate must not be greater than the date today!");
        EXPECT_EQ(window.focus(), &fields.header.txtBirthDate);
        // Cancel never asks the field; the form closes with the clerk's consent.
        desk.desktop.answer(ui::Answer::Ok);
        window.pressKey(ui::key::escape);
        EXPECT_EQ(desk.desktop.messages.back().text, "Are you sure to close this program?");
        EXPECT_FALSE(window.isOpen());
    });
}

TEST(Form, CivilStatusMustFitTheAge) {
    const struct {
        const char* status;
        const char* age;
        const char* message;
    } cases[] = {{"Child", "15", "Child is not allowed for patient's above pediatric age..."},
                 {"Child", "14", nullptr},
                 {"Married", "15", "Selected Status is not allowed for ages below 16."},
                 {"Married", "16", nullptr},
                 {"Single", "3", nullptr}};
    for (const auto& entry : cases)
        inNewForm([&](FormFixture& desk, ui::Window& window, Fields& fields) {
            SCOPED_TRACE(std::string{entry.status} + entry.age);
            fields.header.txtAge.setText(entry.age);
            window.setFocus(fields.personal.cboCivilStatus);
            fields.personal.cboCivilStatus.setText(entry.status);
            if (entry.message != nullptr)
                desk.desktop.answer(ui::Answer::Ok);
            window.pressTab(false);
            EXPECT_EQ(window.focus() == &fields.personal.cboCivilStatus, entry.message != nullptr);
            EXPECT_EQ(fields.personal.cboCivilStatus.refusal(), entry.message != nullptr ? entry.message : "");
            if (entry.message != nullptr) {
                EXPECT_EQ(desk.desktop.messages.back().text, entry.message);
            }
        });
}

TEST(Form, ALookupThatFailsSaysWhyAndLeavesEverythingAsItWas) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        ui::TextBox& code = fields.personal.txtZipCode;
        window.setFocus(code);
        window.edited(code, "1000");
        desk.listing.get()->fail = true;
        desk.desktop.answer(ui::Answer::Ok);
        window.pressTab(false);
        EXPECT_EQ(desk.desktop.messages.back().text, "The listing cannot be read.");
        EXPECT_EQ(window.focus(), &code);
        EXPECT_EQ(code.text(), "1000");
        desk.listing.get()->fail = false;
        window.pressTab(false);
        EXPECT_EQ(fields.personal.town.name.text(), "MANILA, METRO MANILA");
        // The lookup button asks for the whole list, once.
        window.click(fields.personal.town.lookup);
        EXPECT_EQ(desk.listing.get()->searches.back(), (std::pair<std::string, std::int32_t>{"", 0}));
        EXPECT_FALSE(desk.globals.gForceSearch);
        window.edited(code, "");
        window.pressTab(false);
        EXPECT_EQ(fields.personal.town.name.text(), "");
    });
}

TEST(Form, TheCheckBeforeASaveNamesTheFirstMistakeAndStandsThere) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        fields.personal.insured.setSelected(true);
        fields.personal.txtNationality.setText("");
        fields.header.male.setSelected(false);
        window.setFocus(fields.history.hypertension); // on another tab than the mistakes
        const struct {
            const char* message;
            ui::Control& mistake;
            std::function<void()> mend;
        } steps[] = {
            {"Please enter Account Code", fields.personal.company.code,
             [&] { fields.personal.company.code.setText("HMO-1"); }},
            {"Invalid Patient Name", fields.header.txtLastName, [&] { fields.header.txtLastName.setText("CRUZ"); }},
            {"Invalid Patient Name", fields.header.txtFirstName, [&] { fields.header.txtFirstName.setText("ANA"); }},
            {"Please enter patient's zip code!", fields.personal.txtZipCode,
             [&] { fields.personal.txtZipCode.setText("1000"); }},
            {"Please enter patient's nationality!", fields.personal.txtNationality,
             [&] { fields.personal.txtNationality.setText("1"); }},
            {"Please enter patient's religion!", fields.personal.txtReligion,
             [&] { fields.personal.txtReligion.setText("1"); }},
            {"You must specify the out-patient's sex.", fields.header.male,
             [&] { window.click(fields.header.female); }},
            {"Please enter the patient's Birthdate", fields.header.txtBirthDate,
             [&] { fields.header.txtBirthDate.setText("02/30/2000"); }},
            {"Invalid Birthdate", fields.header.txtBirthDate,
             [&] { fields.header.txtBirthDate.setText("03/07/1980"); }},
        };
        for (const auto& step : steps) {
            SCOPED_TRACE(step.message);
            desk.desktop.answer(ui::Answer::Ok);
            EXPECT_FALSE(desk.form->validate());
            EXPECT_EQ(desk.desktop.messages.back().text, step.message);
            EXPECT_EQ(window.focus(), &step.mistake);
            EXPECT_TRUE(step.mistake.isShown());
            EXPECT_EQ(step.mistake.refusal(), step.message);
            step.mend();
            EXPECT_NE(step.mistake.refusal(), step.message);
        }
        EXPECT_TRUE(desk.form->validate());
        EXPECT_EQ(desk.form->record().SexCode, "F");
        EXPECT_EQ(desk.globals.AccountTypeCode, "C");
        EXPECT_EQ(desk.form->record().CivilStatusCode, "1");
    });
}

} // namespace
} // namespace opd::tests
