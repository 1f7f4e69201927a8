#include "search/master_search.h"

#include "base/text/text.h"
#include "data/entry_settings.h"
#include "data/hospital_settings.h"
#include "data/procedures/dates.h"
#include "data/procedures/key_filters.h"
#include "data/rows.h"
#include "data/searching_settings.h"

#include <utility>

namespace opd::search {

frmMasterSearch::frmMasterSearch(Session& session, RegistrationOpener& registration, VisitsOpener& visits)
    : m_session(session), m_opener(session, registration, m_window), m_visits(visits) {
    m_window.onLoad = [this] { load(); };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    m_window.cancelButton = &m_fields.close;
    m_fields.close.causesValidation = false;
    // No search asks for year, month and day apart from the birth date.
    for (ui::Control* unused :
         std::initializer_list<ui::Control*>{&m_fields.txtBirthYear, &m_fields.cboBirthMonth, &m_fields.cboBirthDay})
        unused->setVisible(false);
    m_fields.txtAge.setEnabled(false);
    setHints();
    bindKeys();
    bindCriteria();
    bindActions();
    bindPapers();
}

void frmMasterSearch::setHints() {
    m_fields.txtHospNum.hint = "Scan the card, or type its number: the search begins by itself.";
    m_fields.lastName.hint = "The last name or its beginning; LAST, FIRST MIDDLE narrows the search.";
    for (ui::OptionButton* option : {&m_fields.male, &m_fields.female})
        option->hint = "The arrow keys or a click choose the sex; a search by name needs it.";
    m_fields.txtBirthDate.hint = "Month, day and year, such as 03/07/1980, or F4 for the calendar. Alt+S searches.";
    for (const MasterSearchFields::MemberNumberBox& number : m_fields.memberNumbers)
        number.box->hint = "The search begins when Enter or Tab leaves the field.";
    m_fields.gridPatientList.hint = "The arrow keys choose a patient, Enter opens the registration.";
}

void frmMasterSearch::bindKeys() {
    m_window.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            m_window.sendTab();
        else if (press.code == U'\'')
            press.drop();
        else
            press.code = text::upper(press.code);
    };
    m_fields.lastName.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code >= U'0' && press.code <= U'9')
            press.drop();
        data::FilterNameKey(press.code);
        // Enter only walks through; it must not take a scanned card away before its search has begun.
        if (press.code != 0 && press.code != ui::key::enter)
            clearOthers(m_fields.lastName);
    };
    for (const auto& [kind, name, number] : m_fields.memberNumbers)
        number->onKeyPress = [this, number = number](ui::KeyPress& press) {
            if (press.code == ui::key::enter)
                return;
            press.code = data::FilterKeyInSet(m_session.desktop, press.code, "1234567890-", true);
            if (press.code != 0)
                clearOthers(*number);
        };
    m_fields.txtHospNum.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            return;
        m_fields.search.setEnabled(true);
        m_fields.tmrBarCode.start();
    };
    m_fields.txtBirthDate.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            enteredBirthDate();
    };
    m_fields.gridPatientList.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            openChosen();
        else if (boxFor(press.code) != nullptr)
            forgetRows();
    };
    m_fields.gridPatientList.typesInto = [this](char32_t character) { return boxFor(character); };
}

// With quick entry the date that completes the criteria is the wish to search for them.
void frmMasterSearch::enteredBirthDate() {
    const bool isBlank = m_fields.txtBirthDate.isBlank();
    const bool isComplete = !text::isBlank(m_fields.lastName.text()) &&
                            (m_fields.male.selected() || m_fields.female.selected()) && m_fields.search.enabled();
    if (isBlank)
        m_session.desktop.ask({.text = "Please enter Patient's Birtdate!"});
    if (isBlank || (m_fields.txtBirthDate.entersWhenFull && isComplete && !m_finder.acceptBirthDate(m_window)))
        m_window.setFocus(m_fields.txtBirthDate);
    else if (m_fields.txtBirthDate.entersWhenFull && isComplete)
        search();
}

// What is typed on the list is the next card (a scanner types its digits wherever the focus is) or the next name.
ui::TextBox* frmMasterSearch::boxFor(char32_t character) {
    if (character >= U'0' && character <= U'9')
        return &m_fields.txtHospNum;
    char32_t letter = character;
    data::FilterNameKey(letter);
    return letter > ui::key::space && letter != U',' && letter != U'-' ? &m_fields.lastName : nullptr;
}

// An Enter that follows must not open whom the clerk has done with.
void frmMasterSearch::forgetRows() {
    m_session.globals.gSelectedHospNum.clear();
    m_fields.gridPatientList.clear();
    m_window.setStatus({});
}

// One group of criteria at a time: what is typed into one empties the others.
void frmMasterSearch::clearOthers(const ui::Control& kept) {
    const auto clear = [&](ui::TextBox& box) {
        if (&box != &kept)
            box.setText("");
    };
    for (const MasterSearchFields::MemberNumberBox& number : m_fields.memberNumbers)
        clear(*number.box);
    clear(m_fields.txtHospNum);
    clear(m_fields.lastName);
    if (&kept != &m_fields.lastName)
        m_fields.txtBirthDate.clear();
}

void frmMasterSearch::bindCriteria() {
    for (ui::Control* criterion :
         std::initializer_list<ui::Control*>{&m_fields.lastName, &m_fields.txtBirthDate, &m_fields.txtBirthYear,
                                             &m_fields.cboBirthMonth, &m_fields.cboBirthDay})
        criterion->onChange = [this] { criterionChanged(); };
    for (ui::OptionButton* option : {&m_fields.male, &m_fields.female})
        option->onClick = [this] { criterionChanged(); };
    m_fields.txtHospNum.onChange = [this] {
        clearOthers(m_fields.txtHospNum);
        m_window.setStatus({});
    };
    m_fields.txtBirthDate.onValidate = [this](bool& refuse) { refuse = !m_finder.acceptBirthDate(m_window); };
    for (const auto& [kind, name, number] : m_fields.memberNumbers) {
        number->onChange = [this] { criterionChanged(); };
        number->onValidate = [this, number = number](bool&) {
            // A number that was searched for already is not searched for again on every way through the field.
            if (!text::isBlank(number->text()) && m_fields.search.enabled())
                search();
        };
    }
}

void frmMasterSearch::criterionChanged() {
    m_fields.search.setEnabled(true);
    m_finder.takeBackRefusals();
    m_window.setStatus({});
}

void frmMasterSearch::bindActions() {
    m_window.ownKeys = {{"F3", "today's visits", [this]() -> ui::Control* {
                             showVisits();
                             return nullptr;
                         }}};
    m_fields.search.onClick = [this] { search(); };
    m_fields.newSearch.onClick = [this] { newSearch(); };
    m_fields.newPatient.onClick = [this] { openNew(); };
    m_fields.cmdTodaysVisits.onClick = [this] { showVisits(); };
    m_fields.cmdTodaysVisits.causesValidation = false; // what stands in the criteria is not searched for
    const auto close = [this] {
        m_closedByOperator = true;
        m_window.unload();
    };
    m_fields.close.onClick = close;
    m_window.onCloseRequest = close;
    m_fields.tmrBarCode.onTick = [this] {
        m_fields.tmrBarCode.stop();
        if (!text::isBlank(m_fields.txtHospNum.text()))
            search();
    };
    const auto select = [this] {
        const ui::Grid& grid = m_fields.gridPatientList;
        m_session.globals.gSelectedHospNum = text::trimmed(grid.cell(grid.currentRow(), 3));
    };
    m_fields.gridPatientList.onClick = select;
    m_fields.gridPatientList.onRowChange = select;
    m_fields.gridPatientList.onDoubleClick = [this] { openChosen(); };
}

void frmMasterSearch::bindPapers() {
    const auto bind = [this](ui::Button& button, const reports::Paper& paper, const char* key, const char* deed) {
        button.causesValidation = false; // what stands in the criteria is not searched for
        button.onClick = [this, &paper] { showPaper(paper, false); };
        m_window.ownKeys.push_back({key, deed, [this, &paper]() -> ui::Control* {
                                        showPaper(paper, false);
                                        return nullptr;
                                    }});
    };
    bind(m_fields.cmdLabel, reports::patientLabel, "F7", "label of the last patient");
    bind(m_fields.cmdCard, reports::patientCard, "F8", "card of the last patient");
    reports::bindPrintKeys(m_window, [this](const reports::Paper& paper) { showPaper(paper, true); });
}

void frmMasterSearch::showPaper(const reports::Paper& paper, bool atOnce) {
    const Globals& globals = m_session.globals;
    if (globals.lastOPDNumber.empty())
        m_window.setStatus("Nobody has been registered at this desk yet.");
    else
        reports::showPaper(m_session, paper, globals.lastOPDNumber, globals.lastHospNum, atOnce);
}

void frmMasterSearch::load() {
    m_closedByOperator = true;
    m_noMatch.clear();
    m_fields.tmrBarCode.stop();
    m_session.globals.gSelectedHospNum.clear();
    blankFields();
    m_finder.showEmptyGrid();
    m_fields.gridPatientList.setEnabled(false);
    m_fields.newPatient.setEnabled(false);
    m_fields.search.setEnabled(false);
    m_fields.txtBirthDate.calendarDay = m_session.clock.now();
    m_fields.txtBirthDate.entersWhenFull = data::entersQuickly(m_session.settings);
    data::LoadServerDate(m_session);
    data::LoadHospitalInfo(m_session);
    m_window.setStatus(std::exchange(m_session.globals.lastOutcome, {}));
    showLastRegistered();
}

// For the card or receipt that the clerk writes by hand: what is said of a search soon takes the status line's place.
void frmMasterSearch::showLastRegistered() {
    const std::string& last = m_session.globals.lastRegistered;
    m_fields.lblLastRegistered.setVisible(!last.empty());
    m_fields.lblLastRegistered.setCaption(text::replaced(last, "&", "&&"));
    for (ui::Button* button : {&m_fields.cmdLabel, &m_fields.cmdCard})
        button->setVisible(!m_session.globals.lastOPDNumber.empty());
}

void frmMasterSearch::blankFields() {
    for (ui::TextBox* box : {&m_fields.lastName, &m_fields.txtHospNum, &m_fields.txtBirthYear, &m_fields.txtAge})
        box->setText("");
    for (const MasterSearchFields::MemberNumberBox& number : m_fields.memberNumbers)
        number.box->setText("");
    for (ui::ComboBox* box : {&m_fields.cboBirthMonth, &m_fields.cboBirthDay})
        box->setText("");
    for (ui::OptionButton* option : {&m_fields.male, &m_fields.female}) {
        option->setSelected(false);
        option->setRefusal({});
    }
    m_fields.txtBirthDate.clear();
    for (ui::Control* field : std::initializer_list<ui::Control*>{&m_fields.lastName, &m_fields.txtBirthDate})
        field->setRefusal({});
    m_window.setStatus({});
}

void frmMasterSearch::search() {
    m_fields.tmrBarCode.stop();
    m_fields.search.setEnabled(false);
    PatientFinder::Outcome outcome{};
    try {
        outcome = m_finder.search(m_window);
    } catch (...) {
        m_fields.search.setEnabled(true); // the same search can be tried again with one key
        throw;
    }
    if (outcome == PatientFinder::Outcome::Refused)
        return;
    m_fields.newPatient.setEnabled(true);
    m_noMatch = outcome == PatientFinder::Outcome::NothingFound ? m_finder.nobodyFound() : std::string{};
    if (!m_noMatch.empty())
        openNew();
    if (outcome != PatientFinder::Outcome::Found)
        return;
    m_fields.gridPatientList.setEnabled(true);
    m_window.setFocus(m_fields.gridPatientList);
}

void frmMasterSearch::newSearch() {
    blankFields();
    m_session.globals.gSelectedHospNum.clear();
    m_fields.gridPatientList.clear();
    m_fields.search.setEnabled(true);
    m_window.setFocus(m_fields.txtHospNum);
    m_fields.newPatient.setEnabled(false);
}

void frmMasterSearch::openChosen() {
    m_closedByOperator = false;
    m_opener.openChosen();
    m_window.setFocus(m_fields.gridPatientList); // where the clerk declined, the row stays at hand
}

void frmMasterSearch::openNew() {
    PatientOpener::NewPatient patient{.lastName = m_fields.lastName.text(), .sex = {}, .birthDate = {}};
    if (data::carriesSexAndBirthDate(m_session.settings)) {
        patient.sex = m_finder.Sex();
        patient.birthDate = m_fields.txtBirthDate.isBlank() ? std::string{} : m_fields.txtBirthDate.text();
    }
    m_closedByOperator = false;
    if (m_opener.Proc_AdmitNewRecord(patient, m_noMatch) && !m_session.globals.gDuplicateLastName.empty())
        showDuplicate();
}

void frmMasterSearch::showVisits() {
    m_visits.showTodaysVisits();
    showLastRegistered();
}

// The new patient turned out to be on file already: shows that patient in a fresh window.
void frmMasterSearch::showDuplicate() {
    Globals& globals = m_session.globals;
    m_window.load();
    m_fields.lastName.setText(std::exchange(globals.gDuplicateLastName, {}));
    m_fields.txtBirthDate.setText(std::exchange(globals.gDuplicateBirthDate, {}));
    const std::string sex = std::exchange(globals.gDuplicateSex, {});
    m_fields.male.setSelected(sex == "M");
    m_fields.female.setSelected(sex == "F");
    try {
        search();
    } catch (const std::exception& failure) { // the window opens all the same, so that the clerk can try again
        data::reportFailure(m_session, failure);
    }
    if (m_window.isLoaded())
        showModal();
}

} // namespace opd::search
