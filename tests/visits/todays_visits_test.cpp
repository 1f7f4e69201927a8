// The list of today's visits over a recording database. On a real one operator scripts work it.
#include "support/test_session.h"
#include "visits/todays_visits.h"

#include <gtest/gtest.h>

namespace opd::tests {
namespace {

/// Stores nothing; remembers what it was asked to open.
struct OpenerStandIn final : search::RegistrationOpener {
    std::vector<std::string> opened;
    std::function<void()> meanwhile;
    search::Opened open(const search::Opening& opening) override {
        opened.push_back(opening.FormType + " " + opening.HospNum + " " + opening.AdmissionNumber);
        if (meanwhile)
            meanwhile();
        return search::Opened::Shown;
    }
};

const DateTime moment{2026, 11, 24, 9, 15, 0};

/// A row as the database answers it.
std::vector<ado::Value> row(const char* number, const char* last, const char* user, const char* status = "",
                            const ado::Value& billed = {}, const ado::Value& discharged = {},
                            const ado::Value& ended = {}) {
    return {moment, number, "00000002", last, "MARÍA", {}, {}, "CRUZ", "NOEL", user, status, billed, discharged, ended};
}

struct Desk : TestSession {
    Desk() {
        provider->answer("select GETDATE()", oneRow({{"Tdate", clock.moment}}));
        answer({row("5B", "ABAD", "clerk"), row("4B", "PEÑA", "NIGHT", "R", moment),
                row("3B", "CRUZ", "CLERK ", "", moment), row("2B", "DIZON", "NIGHT", "W", {}, moment),
                row("1B", "ONG", "NIGHT", "", {}, {}, moment)});
    }

    void answer(std::vector<std::vector<ado::Value>> rows) {
        ado::ResultSet found;
        found.columns = {"AdmDate",    "IDNum",       "HospNum",        "LastName",        "FirstName",
                         "MiddleName", "Service",     "DoctorLastName", "DoctorFirstName", "UserID",
                         "OPDStatus",  "BillingDate", "dcrDate",        "ConsultationDate"};
        found.rows = std::move(rows);
        provider->answer("Select v.AdmDate", found);
    }

    std::vector<std::string> column(int wanted) {
        std::vector<std::string> cells;
        for (int at = 1; at <= visits.fields().grdVisits.rowCount(); ++at)
            cells.push_back(visits.fields().grdVisits.cell(at, wanted));
        return cells;
    }

    OpenerStandIn opener;
    visits::frmTodaysVisits visits{session, opener};
};

using Texts = std::vector<std::string>;

TEST(TodaysVisits, ShowsWhatBecameOfEachAndNarrowsByTextAndUser) {
    Desk desk;
    desk.desktop.work([&](ui::Window& window) {
        visits::TodaysVisitsFields& fields = desk.visits.fields();
        EXPECT_EQ(desk.column(7), (Texts{"open", "revoked", "billed", "discharged", "consultation ended"}));
        EXPECT_EQ(fields.grdVisits.rows()[0],
                  (Texts{"09:15 AM", "5B", "ABAD, MARÍA", "00000002", "", "CRUZ, NOEL", "clerk", "open"}));
        EXPECT_EQ(window.focus(), &fields.grdVisits);
        TestDesktop::type(window, "pena");
        EXPECT_EQ(desk.column(1), Texts{"4B"});
        fields.txtSearch.setText("maria");
        EXPECT_EQ(desk.column(1).size(), 5U);
        EXPECT_EQ(fields.grdVisits.currentRow(), 2) << "the one that was marked stays marked";
        window.click(fields.chkMine);
        EXPECT_EQ(desk.column(1), (Texts{"5B", "3B"}));
        EXPECT_EQ(fields.lblCount.caption(), "2 of 5 visits today");
        fields.txtSearch.setText("nobody");
        EXPECT_FALSE(fields.cmdOpen.enabled() || fields.cmdPrint.enabled());
        window.doubleClick(fields.grdVisits);
    });
    desk.visits.showTodaysVisits();
    EXPECT_EQ(desk.opener.opened, Texts{});
    EXPECT_NE(desk.provider->log.find("AdmDate >= '11/24/2026' and v.AdmDate < '11/25/2026' order by"),
              std::string::npos);
}

TEST(TodaysVisits, ComesBackWithTheSameVisitMarkedAndKeepsItsRowsWhenTheDatabaseFails) {
    Desk desk;
    desk.opener.meanwhile = [&] {
        desk.globals.lastOutcome = "Stored: Hosp. # 00000002, Case # 3B.";
        desk.answer({row("6B", "NEW", "NIGHT"), row("5B", "ABAD", "NIGHT"), row("3B", "CRUZ", "CLERK", "R")});
    };
    desk.desktop.work([&](ui::Window& window) {
        visits::TodaysVisitsFields& fields = desk.visits.fields();
        fields.grdVisits.setCurrentRow(3);
        window.pressKey(ui::key::enter);
        EXPECT_EQ(desk.opener.opened, Texts{"Edit 00000002 3B"});
        EXPECT_EQ(fields.grdVisits.currentRow(), 3);
        EXPECT_EQ(desk.column(7), (Texts{"open", "open", "revoked"}));
        EXPECT_EQ(window.statusLine(), "Stored: Hosp. # 00000002, Case # 3B.");
        desk.provider->failOn("Select v.AdmDate", "The server is gone.");
        desk.desktop.answer(ui::Answer::Ok);
        window.click(fields.cmdRefresh);
        EXPECT_EQ(desk.desktop.messages.back().text, "The server is gone.");
        EXPECT_EQ(desk.column(1), (Texts{"6B", "5B", "3B"}));
        window.click(fields.cmdPrint);
        EXPECT_EQ(desk.desktop.shown.back(), "frmReportViewer");
    });
    desk.visits.showTodaysVisits();
}

} // namespace
} // namespace opd::tests
