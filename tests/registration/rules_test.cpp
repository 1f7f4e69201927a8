#include "registration/accounts/payer_rules.h"
#include "registration/form_fixture.h"

#include "registration/load/visit_loader.h"

#include <tuple>

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

constexpr const char* refused = ""; ///< by a message whose words the operator scripts know

/// Tab in a field: a message keeps the focus there and is its mark; without one the clerk goes on.
void leave(FormFixture& desk, ui::Window& window, ui::Control& field, const char* message) {
    if (message != nullptr)
        desk.desktop.answer(ui::Answer::Ok);
    window.setFocus(field);
    window.pressTab(false);
    EXPECT_EQ(window.focus() == &field, message != nullptr);
    EXPECT_EQ(field.refusal(), message != nullptr ? desk.desktop.messages.back().text : "");
    EXPECT_EQ(field.refusal().empty(), message == nullptr);
    if (message != nullptr && *message != '\0') {
        EXPECT_EQ(field.refusal(), message);
    }
}

TEST(Form, ANewPatientStartsWithTheServersDateAndWhatTheHospitalUses) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        EXPECT_EQ(fields.header.dtpAdmDate.text() + " " + fields.header.txtAdmTime.text(), "11/24/2026 02:05 PM");
        EXPECT_EQ(fields.header.txtOPDNum.text(), "(TO BE GENERATED)");
        EXPECT_EQ(desk.form->record().VisitKindCode, "N");
        EXPECT_TRUE(fields.buttons.cmdPrint.visible());
        for (const ui::Control* hidden : std::initializer_list<const ui::Control*>{
                 &fields.buttons.cmdUpdate, &fields.header.fraMasterFileRegistrationOnly, &fields.personal.cmbPaycode,
                 &fields.additional.letterOfAuthorization, &fields.additional.FraPatientClass,
                 &fields.additional.frmPatientType, &fields.additional.fraMAB, &fields.personal.txtBarangayID})
            EXPECT_FALSE(hidden->visible()) << hidden->name();

        // A visit may be stored as a company's though the patient is not insured: that is what decides.
        fields.personal.optHospPlan(1).setSelected(true);
        fields.personal.notInsured.setSelected(true);
        standByPayer(fields, false);
        EXPECT_FALSE(fields.personal.company.code.enabled());

        window.setFocus(fields.additional.cmdCapture);
        window.click(fields.additional.cmdCapture);
        EXPECT_EQ(window.statusLine(), "No photograph was taken: the camera is missing or gave no picture.");
    });
}

TEST(Form, DatesAgeAndCivilStatusMustFitEachOther) {
    const DateTime today{2026, 11, 24, 0, 0, 0};
    const struct {
        const char* birthDate;
        DateTime admitted;
        const char* message; ///< null when accepted
        const char* age;
        const char* months;
    } births[] = {
        {"", today, refused, "", ""},
        {"02/30/2000", today, refused, "", ""},
        {"11/25/2026", today, refused, "", ""},
        {"12/01/2026", {2026, 12, 31, 0, 0, 0}, "Birthdate must not be greater than the date today!", "", ""},
        {"11/24/2026", today, nullptr, "0", "0 days"}, // an admission on the day of birth
        {"10/25/2026", today, nullptr, "0", "30 days"},
        {"10/24/2026", today, nullptr, "0", "1 month"},
        {"11/25/2024", today, nullptr, "1", "23 months"},
        {"11/24/2024", today, nullptr, "1", ""},
        {"11/23/2012", today, nullptr, "14", ""},
        {"03/07/1980", today, nullptr, "46", ""},
        {"01/01/1850", today, "Invalid Age...", "176", ""},
    };
    for (const auto& entry : births)
        inNewForm([&](FormFixture& desk, ui::Window& window, Fields& fields) {
            SCOPED_TRACE(entry.birthDate);
            fields.header.dtpAdmDate.setValue(entry.admitted);
            window.edited(fields.header.txtBirthDate, entry.birthDate);
            leave(desk, window, fields.header.txtBirthDate, entry.message);
            EXPECT_EQ(fields.header.txtAge.text(), entry.age);
            EXPECT_EQ(fields.header.lblAgeInMonths.caption(), entry.months);
            EXPECT_EQ(fields.personal.cboCivilStatus.text(), std::string{entry.age} == "0" ? "Child" : "Single");
            if (entry.message == nullptr)
                leave(desk, window, fields.header.dtpAdmDate, nullptr);
        });

    const std::tuple<const char*, const char*, const char*> statuses[] = {
        {"Child", "15", "Child is not allowed for patient's above pediatric age..."},
        {"Child", "14", nullptr},
        {"Married", "15", refused},
        {"Married", "16", nullptr}};
    for (const auto& entry : statuses)
        inNewForm([&](FormFixture& desk, ui::Window& window, Fields& fields) {
            fields.personal.cboCivilStatus.setText(std::get<0>(entry));
            fields.header.txtAge.setText(std::get<1>(entry));
            leave(desk, window, fields.personal.cboCivilStatus, std::get<2>(entry));
            window.edited(fields.header.txtBirthDate, "03/07/1980"); // which puts right what is right for a grown-up
            leave(desk, window, fields.header.txtBirthDate, nullptr);
            EXPECT_EQ(fields.personal.cboCivilStatus.refusal().empty(),
                      std::get<2>(entry) == nullptr || fields.personal.cboCivilStatus.text() != "Child");
        });

    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        fields.history.lastMenstruation.setVisible(true);
        for (const auto& [day, message] : {std::pair{"11/25/2026", refused}, {"11/24/2026", nullptr}, {"", nullptr}}) {
            window.edited(fields.history.txtLMP, day);
            leave(desk, window, fields.history.txtLMP, message);
        }
    });

    inNewForm([](FormFixture&, ui::Window& window, Fields& fields) { // old enough on the day: nothing is said
        fields.header.txtAge.setText("59");
        window.click(fields.personal.chkSenior);
        fields.header.txtAge.setText("60");
        window.click(fields.personal.chkSeniorCitizen);
    });
}

TEST(Form, ALookupThatFailsSaysWhyAndLeavesEverythingAsItWas) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        ui::TextBox& code = fields.personal.txtZipCode;
        window.edited(code, "1000");
        window.setFocus(code);
        desk.listing.get()->fail = true;
        desk.desktop.answer(ui::Answer::Ok);
        window.click(fields.personal.town.lookup); // the wish for the whole list holds for one lookup
        EXPECT_EQ(desk.desktop.messages.back().text, "The listing cannot be read.");
        EXPECT_EQ(window.focus(), &code);
        EXPECT_EQ(code.text(), "1000");
        desk.listing.get()->fail = false;
        window.pressTab(false);
        EXPECT_EQ(desk.listing.get()->searches.back(), (std::pair<std::string, std::int32_t>{"1000", 0}));
        EXPECT_EQ(fields.personal.town.name.text(), "MANILA, METRO MANILA");
    });
}

TEST(Form, APatientWhoIsInTheHospitalIsNamedByTheKindOfTheNumber) {
    const std::pair<const char*, const char*> cases[] = {
        {"10250", "Patient already was currently admitted as Adm. # 10250"},
        {"26A0000007B", "Patient has a current OPD registration as Adm. # 26A0000007B"}};
    for (const auto& [number, message] : cases) {
        FormFixture desk;
        desk.provider->answer("Patient_Data..sp_aopd_Check_if_admitted_today", oneRow({{"IdNum", number}}));
        desk.open("NEW", "00000012", "(TO BE GENERATED)");
        desk.desktop.answer(ui::Answer::Ok);
        EXPECT_FALSE(registration::SearchPatient(desk.session, desk.form->fields(), desk.form->record()));
        EXPECT_EQ(desk.desktop.messages.back().text, message);
    }
}

TEST(Form, TheCheckBeforeASaveNamesTheFirstMistakeAndStandsThere) {
    inNewForm([](FormFixture& desk, ui::Window& window, Fields& fields) {
        fields.personal.insured.setSelected(true);
        fields.personal.txtNationality.setText("");
        fields.personal.cboCivilStatus.setText("Child");
        fields.header.male.setSelected(false);
        window.setFocus(fields.history.hypertension); // on another tab than the mistakes
        registration::HeaderFields& header = fields.header;
        registration::PersonalTab& personal = fields.personal;
        const auto put = [](auto& box, const char* text) { return [&box, text] { box.setText(text); }; };
        const struct {
            const char* message;
            ui::Control& mistake;
            std::function<void()> mend;
        } steps[] = {
            {refused, personal.company.code, put(personal.company.code, "HMO-1")},
            {refused, header.txtLastName, put(header.txtLastName, "CRUZ")},
            {refused, header.txtFirstName, put(header.txtFirstName, "ANA")},
            {refused, personal.txtZipCode, put(personal.txtZipCode, "1000")},
            {"Please enter patient's nationality!", personal.txtNationality, put(personal.txtNationality, "1")},
            {"Please enter patient's religion!", personal.txtReligion, put(personal.txtReligion, "1")},
            {"You must specify the out-patient's sex.", header.male, [&] { window.click(header.female); }},
            {refused, header.txtBirthDate, put(header.txtBirthDate, "02/30/2000")},
            {"Invalid Birthdate", header.txtBirthDate, put(header.txtBirthDate, "03/07/1980")},
        };
        for (const auto& step : steps) {
            desk.desktop.answer(ui::Answer::Ok);
            EXPECT_FALSE(desk.form->validate());
            const std::string told = desk.desktop.messages.back().text;
            SCOPED_TRACE(told);
            EXPECT_TRUE(step.message == refused || told == step.message);
            EXPECT_EQ(window.focus(), &step.mistake);
            EXPECT_TRUE(step.mistake.isShown());
            EXPECT_EQ(step.mistake.refusal(), told);
            step.mend();
            EXPECT_NE(step.mistake.refusal(), told);
        }
        EXPECT_TRUE(desk.form->validate());
        EXPECT_EQ(desk.form->record().SexCode, "F");
        EXPECT_EQ(desk.globals.AccountTypeCode, "C");
        EXPECT_EQ(desk.form->record().CivilStatusCode, "0");
    });
}

} // namespace
} // namespace opd::tests
