#pragma once

#include "reports/papers.h"
#include "search/registration_opener.h"
#include "search/visits_opener.h"
#include "session/session.h"
#include "ui/window.h"
#include "visits/todays_visits_fields.h"
#include "visits/visit_list.h"

#include <functional>
#include <string>
#include <vector>

namespace opd::visits {

/// "Today's Visits": the visits that were registered today at this hospital. A visit is opened for editing, also one
/// that was revoked, and its data sheet is shown again. The window stays while a form or a data sheet stands before it.
class frmTodaysVisits final : public search::VisitsOpener {
  public:
    frmTodaysVisits(Session& session, search::RegistrationOpener& registration);

    ui::Window& window() { return m_window; }
    TodaysVisitsFields& fields() { return m_fields; }

    void showTodaysVisits() override;

  private:
    /// What can be done with the marked visit besides opening it.
    struct Action {
        ui::Button& button;
        const char* key; ///< a function key that does the same
        const char* deed;
        std::function<void(const Visit&)> act;
    };

    void bind();
    void bindActions();
    void load();
    void ask();
    void refresh();
    void list(const std::string& current);
    void open();
    void doWith(const Action& action);
    void printDataSheet(const Visit& visit);
    void showPaper(const reports::Paper& paper, const Visit& visit, bool atOnce);
    const Visit* current() const;

    Session& m_session;
    search::RegistrationOpener& m_registration;
    ui::Window m_window{"frmTodaysVisits", "Today's Visits"};
    TodaysVisitsFields m_fields{m_window};
    std::vector<Action> m_actions{{m_fields.cmdPrint, "F6", "data sheet of the marked visit",
                                   [this](const Visit& visit) { printDataSheet(visit); }},
                                  {m_fields.cmdLabel, "F7", "patient's label",
                                   [this](const Visit& visit) { showPaper(reports::patientLabel, visit, false); }},
                                  {m_fields.cmdCard, "F8", "patient's card",
                                   [this](const Visit& visit) { showPaper(reports::patientCard, visit, false); }}};
    VisitList m_visits;
    std::vector<const Visit*> m_listed; ///< those of the grid's rows
};

} // namespace opd::visits
