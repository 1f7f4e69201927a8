#pragma once

#include "registration/hospital_session.h"
#include "support/sql.h"

#include "registration/registration.h"

#include <gtest/gtest.h>

namespace opd::tests {

/// Another desk of a hospital, with a session and a connection of its own.
struct OtherDesk {
    explicit OtherDesk(const HospitalSession& hospital)
        : session{globals, desktop, hospital.clock, hospital.store, {}, hospital.session.devices} {
        globals.gConnection = hospital.connect();
        globals.gUserID = "OTHER";
        globals.gServerDate = hospital.clock.moment;
        globals.gCodeSearch = com::Object{hospital.listing.get()};
        desktop.agreesToAll = true;
    }

    Globals globals;
    TestDesktop desktop;
    Session session;
};

inline constexpr const char* hospNum = "00000002";
inline constexpr const char* visit = "2600000001B";
inline const search::Opening newVisit{"New", hospNum, "(TO BE GENERATED)", {}};

class TwoDesks : public testing::Test {
  protected:
    TwoDesks() {
        hospital.desktop.agreesToAll = true;
        hospital.globals.gConnection->setTrace([this](const std::string& statement) { m_trace += statement + "\n"; });
    }

    std::string stored(const std::string& column, const std::string& table = "tbOutPatient",
                       const std::string& key = std::string{"IDNum = '"} + visit) {
        return hospital.connect()
            ->Execute(sql("Select " + column + " from Patient_Data.." + table + " where " + key + "'"))
            .Fields(column)
            .asText();
    }
    std::string street() { return stored("HouseStreet", "tbMaster", std::string{"HospNum = '"} + hospNum); }

    void otherProgram(const std::string& statement) { hospital.connect()->Execute(sql(statement)); }

    std::unique_ptr<registration::RegistrationForm> openVisit(const char* number = visit) {
        return hospital.open({"Edit", hospNum, number, {}});
    }

    /// What the other desk does with the same visit, from opening to storing.
    static void updateElsewhere(Session& session, const std::function<void(registration::Fields&)>& change,
                                const search::Opening& opening = {"Edit", hospNum, visit, {}}) {
        registration::RegistrationForm form(session, opening);
        form.SetRegistrationMode();
        change(form.fields());
        ASSERT_TRUE(form.validate());
        ASSERT_TRUE(registration::SaveData(session, form.fields(), form.record(), false));
    }

    /// Presses "&Update" or "&Register" in a form that is shown. `choose` works the window of the changes, which must
    /// come exactly when there is one. True when the form closed.
    bool update(registration::RegistrationForm& form, const TestDesktop::Work& choose = {}) {
        hospital.desktop.shown.clear();
        hospital.desktop.messages.clear();
        m_trace.clear();
        bool closed = false;
        hospital.desktop.work([&](ui::Window& window) {
            window.click(form.fields().buttons.cmdSave);
            closed = !window.isOpen();
        });
        if (choose)
            hospital.desktop.work(choose);
        hospital.desktop.show(form.window());
        EXPECT_EQ(hospital.desktop.shown.size() > 1, static_cast<bool>(choose));
        return closed;
    }

    /// The rows of the window of the changes.
    static std::vector<std::string> listedIn(ui::Window& window) {
        std::vector<std::string> rows;
        for (const ui::Grid::Row& row : static_cast<ui::Grid&>(*window.find("grdFields")).rows())
            rows.push_back(row[0] + "|" + row[1] + "|" + row[2] + "|" + row[3] +
                           (row[4].starts_with("UNDOES") ? "|untouched" : ""));
        return rows;
    }

    static TestDesktop::Work press(char32_t accessKey) {
        return [accessKey](ui::Window& window) { window.pressAccessKey(accessKey); };
    }

    std::string m_trace;
    HospitalSession hospital;
    OtherDesk other{hospital};
};

} // namespace opd::tests
