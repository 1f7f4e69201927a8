#include "support/test_session.h"

#include "search/master_search.h"

#include <gtest/gtest.h>

namespace opd::tests {

namespace {

using search::MasterSearchFields;

/// Notes what the search window asks of the registration form.
class OpenerLog final : public search::RegistrationOpener {
  public:
    search::Opened open(const search::Opening& opening) override {
        log += opening.FormType + " " + opening.HospNum + " " + opening.AdmissionNumber + " " + opening.lastName;
        status = opening.status;
        if (failsToLoad)
            throw ado::Error("The server is gone.");
        if (outcome != search::Opened::Shown)
            return outcome;
        opening.beforeShowing();
        log += opening.modal ? "; modal" : "; modeless";
        if (onShow)
            onShow();
        return outcome;
    }

    std::string log;
    std::string status;
    search::Opened outcome = search::Opened::Shown;
    bool failsToLoad = false;
    std::function<void()> onShow;
};

struct SearchDesk : TestSession {
    SearchDesk() {
        provider->answer("Select GetDate() As CurDate", oneRow({{"CurDate", clock.moment}}));
        provider->answer("select * from Patient_Data..tbHospitalInfo",
                         oneRow({{"clientname", "X"}, {"Company", "HOSPITAL"}, {"Address1", ado::Value{}}}));
    }

    ado::ResultSet patients() const {
        ado::ResultSet result;
        result.columns = {"LastName", "FirstName", "MiddleName", "HospNum", "BirthDate", "Age", "Address"};
        for (const char* number : {"00000007", "00000008"})
            result.rows.push_back({"CRUZ", "ANA", ado::Value{}, number, DateTime{1980, 3, 7}, 46, "MANILA"});
        return result;
    }

    /// Opens the search window with `work` as the clerk; afterwards the log holds what the clerk's work sent.
    void open(const std::function<void(ui::Window&, MasterSearchFields&)>& work) {
        desktop.work([&, work](ui::Window& window) {
            provider->log.clear();
            work(window, form.fields());
        });
        form.showModal();
        EXPECT_TRUE(desktop.allAnswersGiven());
    }

    /// Searches for a card.
    static void scan(ui::Window& window, MasterSearchFields& fields, const char* number = "7") {
        fields.txtHospNum.setText(number);
        fields.search.setEnabled(true);
        window.click(fields.search);
    }

    OpenerLog opener;
    struct NoVisits final : search::VisitsOpener {
        void showTodaysVisits() override {}
    } visits;
    search::frmMasterSearch form{session, opener, visits};
};

TEST(MasterSearch, ARefusedBirthDateStopsTheSecondTryAloneAndEveryMarkIsTakenBack) {
    for (const auto& [date, told] : {std::pair{"02/30/1980", "',0,0\n"}, {"01/01/1880", "1880.01.01',0,0\n"}}) {
        SearchDesk desk;
        desk.open([&, birthDate = date, sent = told](ui::Window& window, MasterSearchFields& fields) {
            fields.lastName.setText("CRUZ");
            fields.male.setSelected(true);
            fields.txtBirthDate.setText(birthDate);
            desk.desktop.answer(ui::Answer::Ok);
            window.click(fields.search);
            EXPECT_EQ(desk.desktop.messages.back().text, "Invalid date of birth...");
            EXPECT_EQ(window.focus(), &fields.txtBirthDate);
            EXPECT_EQ(window.statusLine(), fields.txtBirthDate.refusal());
            EXPECT_EQ(desk.provider->log,
                      std::string{"Patient_Data..sp_Adm_MasterPatientSearch 'CRUZ','','','M','','"} + sent);
            EXPECT_TRUE(fields.newPatient.enabled());

            const std::initializer_list<ui::Control*> marked{&fields.lastName, &fields.male, &fields.txtBirthDate};
            window.edited(fields.lastName, "CRUZ");
            window.edited(fields.txtBirthDate, "03/07/1980");
            window.click(fields.male);
            for (ui::Control* field : marked) {
                EXPECT_EQ(field->refusal(), "") << field->name();
                field->setRefusal("again");
            }
            window.click(fields.newSearch);
            for (const ui::Control* field : marked)
                EXPECT_EQ(field->refusal(), "") << field->name();
        });
    }
}

TEST(MasterSearch, TheOldestPatientIs140YearsOld) {
    SearchDesk desk;
    desk.open([&](ui::Window& window, MasterSearchFields& fields) {
        desk.desktop.agreesToAll = true;
        fields.lastName.setText("CRUZ");
        fields.male.setSelected(true);
        // A year counts 365.25 days, and 1900 had no leap day: a birthday is a day short of its age.
        for (const int years : {142, 141}) {
            DateTime born = desk.clock.moment;
            born.year -= years;
            fields.txtBirthDate.setText(dateText(born));
            window.click(fields.search);
            EXPECT_EQ(fields.txtBirthDate.refusal().empty(), years == 141) << fields.txtBirthDate.refusal();
        }
    });
}

TEST(MasterSearch, ANumberWithAnApostropheIsToldPlainlyAndNeverSent) {
    SearchDesk desk;
    ado::ResultSet odd = desk.patients();
    odd.rows[0][3] = "00'07";
    desk.provider->answer("Patient_Data..proc_Bar", odd);
    desk.open([&](ui::Window& window, MasterSearchFields& fields) {
        SearchDesk::scan(window, fields);
        desk.provider->log.clear();
        desk.desktop.answer(ui::Answer::Ok);
        window.pressKey(ui::key::enter);
        EXPECT_EQ(desk.desktop.messages.back().text,
                  "The hospital number 00'07 holds an apostrophe, and this desk cannot open such a number. Please have "
                  "it corrected where it was given out; the patient can be opened then.");
        EXPECT_TRUE(window.isOpen());
        EXPECT_EQ(desk.provider->log, "");
    });
}

TEST(MasterSearch, LeavingAMemberNumberSearchesOnceAndAnEmptyOneNever) {
    SearchDesk desk;
    desk.provider->answer("Patient_Data..", desk.patients());
    desk.open([&](ui::Window& window, MasterSearchFields& fields) {
        window.setFocus(fields.txtPHICNum);
        window.pressTab(false);
        EXPECT_EQ(desk.provider->log, "");
        fields.txtBirthDate.setText("03/07/1980");
        TestDesktop::type(window, "55");
        EXPECT_TRUE(fields.txtBirthDate.isBlank()) << "it belongs to a search by name";
        window.pressTab(false);
        EXPECT_EQ(desk.provider->log, "Patient_Data..sp_Adm_MasterPatientSearchNew '55','2'\n");
        EXPECT_EQ(window.focus(), &fields.gridPatientList);
        window.setFocus(fields.txtGSISNum);
        window.pressTab(false);
        EXPECT_EQ(desk.provider->log, "Patient_Data..sp_Adm_MasterPatientSearchNew '55','2'\n");
    });
}

TEST(MasterSearch, WithoutAnyMatchTheNewPatientOpensAtOnceAndAfterOneOnlyWhenConfirmed) {
    SearchDesk nobody;
    nobody.open([&](ui::Window& window, MasterSearchFields& fields) {
        fields.lastName.setText("QUIZON");
        fields.male.setSelected(true);
        fields.txtBirthDate.setText("03/07/1980");
        window.click(fields.search);
        EXPECT_FALSE(window.isOpen());
    });
    EXPECT_EQ(nobody.provider->log, "Patient_Data..sp_Adm_MasterPatientSearch 'QUIZON','','','M','','1980.03.07',0,0\n"
                                    "Patient_Data..sp_Adm_MasterPatientSubSearch 'QUIZON','M','1980.03.07'\n");
    EXPECT_EQ(nobody.opener.log, "NEW NEW (TO BE GENERATED) QUIZON; modal");
    EXPECT_EQ(nobody.opener.status,
              "No patient on file is called QUIZON, of this sex and birth date. This is a new patient.");
    EXPECT_FALSE(nobody.form.closedByOperator());

    // An opening that failed leaves the window, and the next try needs no second thought either.
    SearchDesk failing;
    failing.opener.failsToLoad = true;
    failing.open([&](ui::Window& window, MasterSearchFields& fields) {
        failing.desktop.answer(ui::Answer::Ok);
        SearchDesk::scan(window, fields);
        EXPECT_EQ(window.statusLine(), "No patient has the card number 7.");
        failing.opener.failsToLoad = false;
        window.click(fields.newPatient);
        EXPECT_FALSE(window.isOpen());
    });
    EXPECT_EQ(failing.desktop.messages.size(), 1U);

    SearchDesk somebody;
    somebody.provider->answer("Patient_Data..proc_Bar", somebody.patients());
    somebody.open([&](ui::Window& window, MasterSearchFields& fields) {
        SearchDesk::scan(window, fields);
        somebody.desktop.answer(ui::Answer::No);
        window.click(fields.newPatient);
        const ui::Message& question = somebody.desktop.messages.back();
        EXPECT_EQ(question.caption, "Verification");
        EXPECT_EQ(question.defaultAnswer, ui::Answer::Cancel);
        EXPECT_TRUE(window.isOpen());
        EXPECT_EQ(somebody.opener.log, "");
    });
}

TEST(MasterSearch, AChosenPatientIsOpenedAndStaysAtHandWhereTheClerkDeclines) {
    using Opened = search::Opened;
    const std::string fresh = "New 00000007 (TO BE GENERATED) ";
    const struct {
        bool hasOpenVisit;
        Opened outcome;
        std::string opened;
        bool windowStays;
    } cases[] = {
        {false, Opened::Refused, fresh, false},
        {false, Opened::Declined, fresh, true},
        {true, Opened::Shown, fresh + "; modeless", false}, // a new number beside the open one: nobody waits
    };
    for (const auto& choice : cases) {
        SearchDesk desk;
        desk.provider->answer("Patient_Data..proc_Bar", desk.patients());
        if (choice.hasOpenVisit)
            desk.provider->answer("Select IDNum from Patient_Data..tbOutPatient", oneRow({{"IDNum", "26A1B"}}));
        desk.globals.isAllowCreateNewIDnum = true;
        desk.opener.outcome = choice.outcome;
        desk.open([&](ui::Window& window, MasterSearchFields& fields) {
            SearchDesk::scan(window, fields);
            EXPECT_EQ(desk.provider->log, "Patient_Data..proc_Bar_Search_Patient '7','5'\n");
            desk.desktop.answers(choice.hasOpenVisit ? "Y" : "");
            window.pressKey(ui::key::enter);
            EXPECT_EQ(desk.opener.log, choice.opened);
            EXPECT_EQ(window.isOpen(), choice.windowStays);
            EXPECT_EQ(window.focus(), &fields.gridPatientList);
            if (!choice.windowStays)
                return;
            TestDesktop::type(window, "8"); // the next card, whose Enter must not open the patient before
            EXPECT_EQ(fields.txtHospNum.text() + desk.globals.gSelectedHospNum, "8");
        });
        EXPECT_FALSE(desk.desktop.isBusy());
    }
}

TEST(MasterSearch, TheNamesakeIsForgottenWhenAnotherPatientWasOpenedOrRegistered) {
    for (const bool opensAnother : {true, false}) {
        SearchDesk desk;
        desk.globals.duplicateLedBackTo = "REYES|08/15/1985";
        if (opensAnother)
            desk.provider->answer("Patient_Data..proc_Bar", desk.patients());
        desk.opener.onShow = [&] { EXPECT_EQ(desk.globals.duplicateLedBackTo.empty(), opensAnother); };
        desk.open([&](ui::Window& window, MasterSearchFields& fields) {
            SearchDesk::scan(window, fields);
            if (opensAnother)
                window.pressKey(ui::key::enter);
        });
        EXPECT_EQ(desk.globals.duplicateLedBackTo, "") << desk.opener.log;
    }
}

TEST(MasterSearch, AFailingDatabaseIsReportedAndTheSearchCanBeTriedAgain) {
    SearchDesk desk;
    desk.provider->failOn("Patient_Data..proc_Bar", "The server is gone.");
    desk.open([&](ui::Window& window, MasterSearchFields& fields) {
        EXPECT_EQ(desk.globals.gCompanyName + desk.globals.gCompanyAddress, "HOSPITAL");
        desk.desktop.answer(ui::Answer::Ok);
        SearchDesk::scan(window, fields);
        EXPECT_EQ(desk.desktop.messages.back().text, "The server is gone.");
        EXPECT_TRUE(window.isOpen());
        EXPECT_TRUE(fields.search.enabled());
        EXPECT_EQ(fields.txtHospNum.text(), "7");
        EXPECT_FALSE(desk.desktop.isBusy());
        window.pressKey(ui::key::escape);
        EXPECT_FALSE(window.isOpen());
    });
    EXPECT_TRUE(desk.form.closedByOperator());
}

} // namespace
} // namespace opd::tests
