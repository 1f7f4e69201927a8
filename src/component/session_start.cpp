#include "component/session_start.h"

#include "base/text/text.h"
#include "com/connection_object.h"
#include "data/connection_settings.h"
#include "data/hospital_settings.h"
#include "registration/registration.h"
#include "search/master_search.h"
#include "visits/todays_visits.h"

#include <stdexcept>

namespace opd {

namespace {

void readConnectionSettings(Session& session) {
    session.globals.gDBUser = data::connStr(session.settings, 1, {});
    session.globals.gDBPassword = data::connStr(session.settings, 2, {});
    session.globals.gDBServer = data::connStr(session.settings, 3, {});
}

void createCodeSearch(Session& session) {
    Globals& globals = session.globals;
    globals.gCodeSearch = session.createObject("Trellicode.clsCodeSearch");
    globals.gCodeSearch.call("Initialize_Classes");
    globals.gCodeSearch.set("CompanyName", globals.gCompanyName);
    globals.gCodeSearch.set("SearchMode", true);
    const com::Ref<com::IConnectionObject> connection = com::makeConnectionObject(globals.gConnection);
    globals.gCodeSearch.set("Connection", com::Ref<com::IUnknown>::sharing(connection.get()));
}

void throwIfGivenUp(const ui::Desktop& desktop) {
    if (const std::optional<std::string> failure = desktop.failure())
        throw std::runtime_error(*failure);
}

} // namespace

SearchEnd runSearch(Session& session) {
    data::loadFeatureFlags(session);
    readConnectionSettings(session);
    createCodeSearch(session);
    session.globals.duplicateLedBackTo.clear(); // whom an earlier call led back to is another clerk's affair

    registration::frmRegistration registration{session};
    visits::frmTodaysVisits visits{session, registration};
    search::frmMasterSearch search{session, registration, visits};
    search.window().load(); // clears the fields, so the text to search for comes after it
    search.fields().lastName.setText(text::replaced(session.globals.gSearchCriteria, "'", "")); // as when it is typed
    search.showModal();
    session.desktop.waitForWindows();
    if (search.closedByOperator())
        session.desktop.workEnded();
    throwIfGivenUp(session.desktop);
    return search.closedByOperator() ? SearchEnd::ClosedByClerk : SearchEnd::PatientOpened;
}

} // namespace opd
