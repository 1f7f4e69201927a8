#pragma once

#include "reports/papers.h"
#include "search/master_search_fields.h"
#include "search/patient_finder.h"
#include "search/patient_opener.h"
#include "search/registration_opener.h"
#include "search/visits_opener.h"
#include "session/session.h"
#include "ui/window.h"

namespace opd::search {

/// "Master Patient Search": finds a patient on file and opens the registration form for that patient or a new one.
class frmMasterSearch {
  public:
    frmMasterSearch(Session& session, RegistrationOpener& registration, VisitsOpener& visits);

    ui::Window& window() { return m_window; }
    MasterSearchFields& fields() { return m_fields; }

    /// Shows the window and returns when it is closed for good.
    void showModal() { m_session.desktop.showModal(m_window); }

    /// True when the clerk closed the window without anything having been opened since it was loaded.
    bool closedByOperator() const { return m_closedByOperator; }

  private:
    void setHints();
    void bindKeys();
    void bindCriteria();
    void bindActions();
    void load();
    void blankFields();
    void search();
    void newSearch();
    void openChosen();
    void openNew();
    void showVisits();
    void showLastRegistered();
    void bindPapers();
    void showPaper(const reports::Paper& paper, bool atOnce);
    void showDuplicate();
    void clearOthers(const ui::Control& kept);
    void criterionChanged();
    ui::TextBox* boxFor(char32_t character);
    void enteredBirthDate();
    void forgetRows();

    Session& m_session;
    ui::Window m_window{"frmMasterSearch", "Master Patient Search"};
    MasterSearchFields m_fields{m_window};
    PatientFinder m_finder{m_session, m_fields};
    PatientOpener m_opener;
    VisitsOpener& m_visits;
    bool m_closedByOperator = false;
    std::string m_noMatch; ///< what nobody matched in the last search, so that a new patient needs no second thought
};

} // namespace opd::search
