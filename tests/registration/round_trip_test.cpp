#include "registration/hospital_session.h"

#include "component/trace_file.h"
#include "data/hospital_settings.h"
#include "setup/server_scripts.h"
#include "support/files.h"
#include "support/full_disk.h"
#include "support/sql.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace opd::tests {

namespace {

void setFlag(HospitalSession& hospital, const std::string& column, bool on) {
    hospital.globals.gConnection->Execute(
        sql("Update Patient_Data..tbHospitalInfo set " + column + (on ? " = '1'" : " = '0'") + " where Company <> ''"));
}

/// A hospital that uses everything, by the switches of its own settings row.
struct FullHospital : HospitalSession {
    explicit FullHospital(const std::string& clientCode) : HospitalSession(clientCode) {
        for (const char* column : {"isAllowCorvane", "IsAllowOPDMABRate", "IsAllowOPDUpdateHMOLOA",
                                   "IsAllowOPDPatientClass", "isAllowOPDPayCode", "isAllowOPDRegisterInpatient"})
            setFlag(*this, column, true);
        data::loadFeatureFlags(session);
        data::LoadHospitalInfo(session);
    }
};

/// What is chosen in every form; each client's patient is in another programme.
std::vector<ui::Control*> chosenIn(registration::Fields& fields, const std::string& client) {
    registration::PersonalTab& personal = fields.personal;
    ui::CheckBox& programme = client.empty()    ? personal.chkHemo
                              : client == "RVT" ? personal.chkRTherapy
                                                : personal.chkforDeposit;
    return {&fields.header.female,           &personal.insured,
            &personal.chkSeniorCitizen,      &personal.chkWalkIn,
            &personal.chkPatientType,        &programme,
            &fields.consultation.withBill,   &fields.consultation.optDiabetes,
            &fields.history.tuberculosis,    &fields.employment.philHealthNo,
            &fields.employment.selfEmployed, &fields.employment.abroad};
}

bool isChosen(const ui::Control* control) {
    const auto* box = dynamic_cast<const ui::CheckBox*>(control);
    return box != nullptr ? box->checked() : dynamic_cast<const ui::OptionButton&>(*control).selected();
}

// That every text comes back follows from the columns below, which a save of what was loaded leaves as they were; a
// choice could be shown wrongly there, since its stored code is kept until the clerk changes it.
TEST(RoundTrip, EveryChoiceComesBackAsItWasMadeForEveryClient) {
    for (const std::string client : {"", "RVT", "TKWA"}) {
        SCOPED_TRACE("client " + client);
        FullHospital hospital(client);
        auto form = hospital.open({"NEW", "NEW", "(TO BE GENERATED)", {}});
        fillRequired(form->fields());
        form->fields().header.txtAdmTime.setValue({2026, 11, 24, 8, 5, 0});
        form->fields().personal.cboCivilStatus.setText("Widow");
        form->fields().personal.company.code.setText("HMO-01");
        form->record().CompanyClass = "H";
        form->fields().additional.txtPatientClassID.setText("2");
        form->fields().personal.dtpExpiration.setValue({2027, 1, 31, 0, 0, 0});
        form->fields().history.txtLMP.setText("11/02/2026");
        form->fields().personal.cmbPaycode.select(1);
        for (ui::Control* control : chosenIn(form->fields(), client))
            if (auto* box = dynamic_cast<ui::CheckBox*>(control); box != nullptr)
                box->setChecked(true);
            else
                dynamic_cast<ui::OptionButton&>(*control).setSelected(true);
        ASSERT_TRUE(form->validate());
        hospital.desktop.answer(ui::Answer::Ok);
        ASSERT_TRUE(hospital.save(*form));

        form = hospital.open({"Edit", form->record().SaveHospNum, form->record().SaveIDNum + "B", {}});
        registration::Fields& fields = form->fields();
        for (const ui::Control* control : chosenIn(fields, client))
            EXPECT_TRUE(isChosen(control)) << control->name();
        for (const ui::Control* other : std::initializer_list<ui::Control*>{
                 &fields.personal.chkChemo, &fields.history.hepatitis, &fields.consultation.optLying})
            EXPECT_FALSE(isChosen(other)) << other->name();
        EXPECT_EQ(fields.header.txtAge.text(), "46");
        EXPECT_EQ(fields.header.dtpAdmDate.text() + " " + fields.header.txtAdmTime.text(), "11/24/2026 08:05 AM");
        EXPECT_EQ(fields.personal.cboCivilStatus.text(), "Widow");
        EXPECT_EQ(fields.personal.dtpExpiration.text(), "01/31/2027");
        EXPECT_FALSE(fields.personal.company.name.text().empty());
        EXPECT_EQ(fields.history.lastMenstruation.visible(), client == "TKWA");
        EXPECT_EQ(fields.history.txtLMP.text(), client == "TKWA" ? "11/02/2026" : "  /  /    ");
        EXPECT_EQ(fields.personal.cmbPaycode.visible(), client == "RVT");
        EXPECT_EQ(fields.personal.cmbPaycode.index(), client == "RVT" ? 1 : -1);
        EXPECT_EQ(fields.personal.cmbPaycodeID.index(), fields.personal.cmbPaycode.index());
    }
}

TEST(HospitalSettings, EveryFlagFollowsTheColumnOfItsNameAloneAndAnEmptyTableChangesNone) {
    HospitalSession hospital;
    ado::Recordset settings;
    settings.Open("Select * from Patient_Data..tbHospitalInfo", *hospital.globals.gConnection);
    std::vector<std::string> columns = settings.all().columns.names();
    std::erase_if(columns, [](const std::string& name) {
        return name == "ClientName" || name == "Company" || name == "Address1";
    });
    ASSERT_EQ(columns.size(), featureFlags.size());
    for (const std::string& column : columns)
        setFlag(hospital, column, false);
    for (const std::string& column : columns) {
        setFlag(hospital, column, true);
        data::loadFeatureFlags(hospital.session);
        for (const auto& [name, flag] : featureFlags)
            EXPECT_EQ(hospital.globals.*flag, text::equalsIgnoringCase(name, column)) << name << " by " << column;
        setFlag(hospital, column, false);
    }
    hospital.globals.isAllowCorvane = true;
    hospital.globals.gConnection->Execute("Delete Patient_Data..tbHospitalInfo where Company <> ''");
    data::loadFeatureFlags(hospital.session);
    EXPECT_TRUE(hospital.globals.isAllowCorvane);
}

// Every column of every row that a save writes, by its own statement: what stands there, what the desk has no choice
// for, and what is empty.

struct Table {
    const char* name;
    const char* key;
    bool ofVisit;
};

constexpr Table tables[] = {{"tbMaster", "HospNum", false},          {"tbMaster2", "HospNum", false},
                            {"tbMasterAllergies", "HospNum", false}, {"tbMasterMedicalHistory", "HospNum", false},
                            {"tbMasterDependent", "SeqNum", false},  {"tbOutPatient", "IDNum", true},
                            {"tbOutPatientContact", "IDNum", true},  {"tbOutPatientHistory", "IDNum", true},
                            {"tbOutProfile", "IDNum", true},         {"tbOpdHMOLOA", "IDNum", true}};

/// What a save is meant to change: who saved, the age of the day, and what nothing but the keys of the row is.
const std::set<std::string> meantToChange{"UserID", "Age"};

/// Columns that must hold something before a form may be saved, and those that a save derives from others.
const std::map<std::string, std::string> indispensable{
    {"LastName", "CRUZ"},     {"FirstName", "ANA"},   {"Sex", "F"},         {"BirthDate", "02/29/1960"},
    {"ZipCode", "1000"},      {"NationalityID", "1"}, {"ReligionID", "1"},  {"AdmDate", "11/24/2026 08:05:00"},
    {"AccountNum", "HMO-01"}, {"HospPlan", "I"},      {"PatientClass", "2"}};

/// Values of columns that take no text of any kind, and codes that no choice of the form stands for.
const std::map<std::string, std::string> peculiar{{"CivilStatus", "7"},
                                                  {"ConsultationType", "X"},
                                                  {"PatientType", "Z"},
                                                  {"PerUnit", "9"},
                                                  {"SeniorCitizenID", "77812"},
                                                  {"BloodPressure", "120/80/77"},
                                                  {"PulseRate", "85 bpm"},
                                                  {"PayCode", "P2"},
                                                  {"OPDStatus", "W"},
                                                  {"ServiceID", "SERVICEID1"},
                                                  {"DoctorID", "DOCTORID1"},
                                                  {"ChiefComplaint", "CHIEFCOMPLAINTS"},
                                                  {"ApprovalNo", "HMOAPPROVALNUM"},
                                                  {"ExpirationDate", "01/31/2027"},
                                                  {"LOADateInformed", "11/20/2026 14:30:00"},
                                                  {"LOADateReceived", "11/21/2026 09:05:00"},
                                                  {"LOAAmount", "1500.75"},
                                                  {"LMP", "11/02/2026"},
                                                  {"FileNum", "5"},
                                                  {"EmploymentType", "9"},
                                                  {"EmploymentLocation", "8"},
                                                  {"PhilHealth", "5"}};

/// Columns that the desk neither fills nor clears.
const std::set<std::string> ofOthers{"BillingDate", "dcrDate", "ConsultationDate"};

bool isFlag(const std::string& column) {
    const char* const conditions[] = {"Hypertension", "Diabetes",    "Hepatitis",    "Allergies",
                                      "Tubercolosis", "PepticUlcer", "BloodDisease", "BronchialAsthma"};
    return column.starts_with("is") || column == "Corvane" || std::ranges::count(conditions, column) > 0;
}

struct RowKeys {
    std::string hospNum;
    std::string visit;
    std::string condition(const Table& table) const {
        return std::string{" where "} + table.key + " = '" + (table.ofVisit ? visit : hospNum) + "'";
    }
};

ado::ResultSet rowsIn(FullHospital& hospital, const Table& table, const RowKeys& keys) {
    ado::Recordset rows;
    rows.Open(sql(std::string{"Select * from Patient_Data.."} + table.name + keys.condition(table)),
              *hospital.globals.gConnection);
    return rows.all();
}

/// Fills every column of the visit and its patient, or empties each that may be empty.
void fillColumns(FullHospital& hospital, const RowKeys& keys, bool empty) {
    ado::Transaction transaction(*hospital.globals.gConnection);
    for (const Table& table : tables) {
        if (std::string{table.name} == "tbMasterDependent")
            continue; // the demonstration patient has two
        for (const std::string& column : rowsIn(hospital, table, keys).columns) {
            const bool isWorkedOut = column.starts_with("Search");
            if (column == "HospNum" || column == table.key || ofOthers.contains(column) || isWorkedOut)
                continue;
            std::string value = "'" + text::upper(column) + "'";
            if (const auto found = indispensable.find(column); found != indispensable.end())
                value = "'" + found->second + "'";
            else if (empty)
                value = column == "OPDStatus" ? "''" : "null";
            else if (const auto odd = peculiar.find(column); odd != peculiar.end())
                value = "'" + odd->second + "'";
            else if (isFlag(column))
                value = "'1'";
            std::string update = "Update Patient_Data..";
            update.append(table.name).append(" set ").append(column).append(" = ").append(value);
            hospital.globals.gConnection->Execute(sql(update.append(keys.condition(table))));
        }
    }
    transaction.commit();
}

/// Nothing, an empty text and zero are the same to a clerk.
std::string plain(const ado::Value& value) {
    const std::string text = value.asText();
    return text == "0" || text == "False" ? std::string{} : text;
}

using Contents = std::vector<ado::ResultSet>;

Contents everything(FullHospital& hospital, const RowKeys& keys) {
    Contents contents;
    for (const Table& table : tables)
        contents.push_back(rowsIn(hospital, table, keys));
    return contents;
}

void expectUnchanged(const Contents& before, const Contents& after, bool visitToo) {
    for (std::size_t n = 0; n < before.size(); ++n) {
        if (tables[n].ofVisit && !visitToo)
            continue;
        ASSERT_EQ(before[n].rows.size(), after[n].rows.size()) << tables[n].name;
        for (std::size_t row = 0; row < before[n].rows.size(); ++row)
            for (std::size_t column = 0; column < before[n].columns.size(); ++column)
                if (!meantToChange.contains(before[n].columns[column])) {
                    EXPECT_EQ(plain(before[n].rows[row][column]), plain(after[n].rows[row][column]))
                        << tables[n].name << "." << before[n].columns[column];
                }
    }
}

TEST(RoundTrip, OpeningAndSavingUnchangedChangesNoColumnOfAnyRow) {
    for (const char* client : {"", "RVT", "TKWA"}) {
        FullHospital hospital(client);
        const auto save = [&hospital](registration::RegistrationForm& form) {
            ASSERT_TRUE(form.validate()) << hospital.desktop.messages.back().text;
            hospital.desktop.answer(ui::Answer::Ok);
            ASSERT_TRUE(hospital.save(form));
        };
        const auto openNewVisit = [&hospital] {
            auto form = hospital.open({"NEW", "00000002", "(TO BE GENERATED)", {}});
            form->fields().additional.txtPatientClassID.setText("2");
            return form;
        };
        hospital.globals.gConnection->Execute(sql( // two codes that read alike
            "Update Build_File..tbCoPayCode set PayCode = 'CASH' where PayCodeID = 'P2'"));
        auto form = openNewVisit();
        form->fields().personal.company.code.setText("HMO-01");
        form->record().CompanyClass = "H";
        save(*form);
        const RowKeys keys{"00000002", form->record().SaveIDNum + "B"};
        for (const bool empty : {false, true}) {
            SCOPED_TRACE(std::string{"client "} + client + (empty ? ", empty" : ", filled"));
            fillColumns(hospital, keys, empty);
            const Contents before = everything(hospital, keys);
            form = hospital.open({"Edit", keys.hospNum, keys.visit, {}});
            EXPECT_EQ(form->fields().consultation.txtPR.text(), empty ? "" : "85 bpm");
            save(*form);
            expectUnchanged(before, everything(hospital, keys), true);
            // A new visit leaves the patient's own rows as they were.
            save(*openNewVisit());
            expectUnchanged(before, everything(hospital, keys), false);
        }
    }
}

/// What the columns of a server's tables hold, by "tbMaster.Title": characters, nothing where it is any number.
std::map<std::string, int> serverWidths() {
    std::map<std::string, int> widths;
    const std::regex line(R"(CREATE TABLE dbo\.(\w+)|\n +(\w+) nvarchar\((\d+)\))");
    for (std::size_t n = 0; n < setup::serverScriptCount; ++n) {
        const std::string script = setup::serverScripts[n].text;
        std::string table;
        for (auto found = std::sregex_iterator(script.begin(), script.end(), line); found != std::sregex_iterator();
             ++found)
            if ((*found)[1].matched)
                table = (*found)[1];
            else
                widths[table + "." + (*found)[2].str()] = std::stoi((*found)[3]);
    }
    return widths;
}

TEST(RoundTrip, NoFieldTakesMoreThanTheColumnOfAServerThatItIsStoredIn) {
    const std::map<std::string, int> widths = serverWidths();
    std::set<std::string> stored;
    for (const bool coded : {false, true}) {
        FullHospital hospital(coded ? "RVT" : "");
        hospital.globals.isAllowOPDSearchBarangay = coded;
        auto form = hospital.open({"NEW", "NEW", "(TO BE GENERATED)", {}});
        fillRequired(form->fields());
        form->fields().history.others.setChecked(true);
        ASSERT_TRUE(form->validate());
        form->record().CompanyClass = "H";               // has a letter of authorization
        std::map<std::string, const ui::TextBox*> boxes; // by what is in each, a number, since one holds an amount
        for (ui::Control* control : form->window().everything())
            if (auto* box = dynamic_cast<ui::TextBox*>(control); box != nullptr && !box->readOnly) {
                box->setText(std::to_string(771000 + boxes.size()));
                boxes[box->text()] = box;
            }
        hospital.desktop.answer(ui::Answer::Ok);
        ASSERT_TRUE(hospital.save(*form)) << hospital.desktop.messages.back().text;
        const RowKeys keys{form->record().SaveHospNum, form->record().SaveIDNum + "B"};
        for (const Table& table : tables) {
            const ado::ResultSet rows = rowsIn(hospital, table, keys);
            for (std::size_t column = 0; column < rows.columns.size() && !rows.rows.empty(); ++column)
                for (const auto& [text, box] : boxes) {
                    if (rows.rows[0][column].asText().find(text) == std::string::npos)
                        continue;
                    stored.insert(box->name());
                    const auto width = widths.find(std::string{table.name} + "." + rows.columns[column]);
                    if (width != widths.end() && (box->maxLength() == 0 || box->maxLength() > width->second))
                        ADD_FAILURE() << box->name() << " takes " << box->maxLength() << ", " << width->first
                                      << " holds " << width->second;
                }
        }
    }
    EXPECT_GT(stored.size(), 70U);
}

TEST(RoundTrip, EveryDemonstrationPatientOpensAsItsVisitSays) {
    FullHospital hospital("");
    const auto opens = [&](const char* type, const char* hospNum, const char* opd) {
        return hospital.open({type, hospNum, opd, {}});
    };
    hospital.globals.gConnection->Execute(
        "Update Patient_Data..tbMaster2 set NationalityID = 'FIL' where HospNum = '00000003'");
    auto patient = opens("New", "00000003", "(TO BE GENERATED)");
    EXPECT_EQ(patient->fields().personal.txtNationality.text(), "FIL");
    EXPECT_EQ(hospital.listing.get()->windows, 0) << "loading shows no list";
    EXPECT_EQ(patient->record().VisitKindCode, "O");
    EXPECT_EQ(patient->fields().personal.town.name.text(), "MANILA, METRO MANILA");

    auto revoked = opens("Edit", "00000006", "2600000003B");
    EXPECT_TRUE(revoked->fields().header.lblAdmissionStatus.visible());
    EXPECT_FALSE(revoked->fields().buttons.cmdRevoke.visible());
    EXPECT_FALSE(revoked->fields().buttons.cmdUnRevoke.visible()) << "only a visit of today can be restored";

    // A billed visit of long ago opens without data, so that the clerk can only cancel.
    hospital.desktop.answer(ui::Answer::Ok);
    auto billed = opens("edit", "00000003", "2600000002B");
    EXPECT_EQ(hospital.desktop.messages.back().text, "You are not allowed to edit previous OPD consultation.");
    EXPECT_EQ(billed->fields().header.txtLastName.text(), "");
    EXPECT_EQ(billed->fields().personal.txtNationality.text(), "1");

    hospital.desktop.answer(ui::Answer::Ok);
    opens("Edit", "00000001", "9999999999B");
    EXPECT_EQ(hospital.desktop.messages.back().text, "Hosp. # (00000001) was never an out-patient.");
}

using Rows = std::vector<ui::Grid::Row>;

TEST(RoundTrip, AChildThatTheDatabaseDoesNotTakeLeavesTheListThatWasStored) {
    FullHospital hospital("");
    hospital.globals.IsAllowOPDPatientClass = false;
    const registration::Opening edit{"Edit", "00000002", "2600000001B", {}};
    auto form = hospital.open(edit);
    ui::Grid& grid = form->fields().employment.mshDependents;
    const Rows stored = grid.rows();
    EXPECT_EQ(stored, (Rows{{"SANTOS, PAOLO REYES", "04/18/2001"}, {"SANTOS, CLARA REYES", "09/02/2004"}, {"", ""}}));
    grid.setCell(1, 0, "SANTOS, CLARISSA");
    grid.setCell(2, 1, "13/13/2024");
    ASSERT_TRUE(form->validate());
    EXPECT_THROW(hospital.save(*form), std::runtime_error);
    form = hospital.open(edit);
    EXPECT_EQ(form->fields().employment.mshDependents.rows(), stored);
}

/// A trace on a disk that has no room for the lines of one parity, so that each line of a registration is hit by one of
/// two runs and there is room again behind it. The database's own files have room always.
struct FullEveryOtherLine {
    explicit FullEveryOtherLine(int which) : full(which) {}

    void operator()(const std::string& statement) {
        std::optional<FullDisk> disk;
        if (lines++ % 2 == full)
            disk.emplace(std::filesystem::file_size(file) + 3);
        else
            expected += statement + "\n";
        trace.write(statement);
    }

    int full;
    TemporaryFolder folder;
    std::filesystem::path file = folder / "trace";
    std::vector<std::string> told;
    TraceFile trace{file, [this](const std::string& reason) { told.push_back(reason); }};
    std::string expected;
    int lines = 0;
};

TEST(RoundTrip, ATraceWithoutRoomIsToldOnceAndTouchesNoStatementOfARegistration) {
    for (const int which : {0, 1}) {
        HospitalSession hospital("");
        hospital.globals.IsAllowOPDPatientClass = false;
        FullEveryOtherLine full(which);
        hospital.globals.gConnection->setTrace([&](const std::string& statement) { full(statement); });
        auto form = hospital.open({"New", "00000012", "(TO BE GENERATED)", {}});
        ASSERT_TRUE(form->validate());
        hospital.desktop.answer(ui::Answer::Ok);
        ASSERT_TRUE(hospital.save(*form)) << hospital.desktop.messages.back().text;
        EXPECT_GT(full.lines, 20);
        ASSERT_EQ(full.told.size(), 1U);
        EXPECT_NE(full.told[0].find(full.file.string()), std::string::npos) << full.told[0];
        EXPECT_EQ(contentOf(full.file), full.expected);
        EXPECT_NO_THROW(hospital.open({"Edit", "00000012", form->record().SaveIDNum + "B", {}}));

        // What throws in a trace of the host's own is no failure of the statement either, nor of its rollback.
        hospital.globals.gConnection->setTrace([](const std::string&) { throw std::logic_error("trace"); });
        { const ado::Transaction givenUp(*hospital.globals.gConnection); }
        EXPECT_FALSE(hospital.globals.gConnection->inTransaction());
        std::filesystem::remove(full.file);
    }
}

TEST(RoundTrip, ATraceFollowsNoLinkAndOpensNothingButAPlainFile) {
    const TemporaryFolder folder;
    writeFile(folder / "target", "kept");
    std::filesystem::create_symlink(folder / "target", folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"link", "pipe", "."})
        EXPECT_THROW(TraceFile(folder / name, {}), std::runtime_error) << name;
    EXPECT_THROW(TraceFile("/dev/full", {}), std::runtime_error);
    EXPECT_EQ(contentOf(folder / "target"), "kept");
}

} // namespace
} // namespace opd::tests
