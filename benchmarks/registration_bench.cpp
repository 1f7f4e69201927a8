#include "bare.h"
#include "pair.h"
#include "workplace.h"

#include "registration/registration_form.h"
#include "registration/save/save_data.h"

namespace opd::bench {

namespace {

constexpr int registrations = 400;

/// Registers visits of patients on file on one hospital, a patient after the other.
class Clerk {
  public:
    explicit Clerk(const std::filesystem::path& folder)
        : m_place(folder, m_desktop),
          m_patients(
              Bare(folder).texts("SELECT HospNum FROM Patient_Data_tbMaster m WHERE rowid > 100 AND NOT EXISTS "
                                 "(SELECT 1 FROM Patient_Data_tbOutPatient v WHERE v.HospNum = m.HospNum) AND NOT "
                                 "EXISTS (SELECT 1 FROM Patient_Data_tbPatient p WHERE p.HospNum = m.HospNum) "
                                 "LIMIT " +
                                 std::to_string(registrations))) {}

    ado::Connection& connection() { return m_place.connection(); }

    /// Fills the form for the next patient.
    void open() {
        const std::string& patient = m_patients.at(m_next++)[0];
        m_form = std::make_unique<registration::RegistrationForm>(
            m_place.session(), registration::Opening{"New", patient, "(TO BE GENERATED)"});
        m_form->SetRegistrationMode();
        m_form->validate();
    }

    std::size_t save() {
        if (!registration::SaveData(m_place.session(), m_form->fields(), m_form->record(), false))
            throw std::runtime_error("A registration was refused.");
        return 0;
    }

  private:
    BriefDesktop m_desktop;
    Workplace m_place;
    std::vector<std::vector<std::string>> m_patients;
    std::size_t m_next = 0;
    std::unique_ptr<registration::RegistrationForm> m_form;
};

/// What the module sends for each registration, tried on a hospital of its own. The numbers that are drawn there are
/// those that are drawn on every other copy.
std::vector<std::vector<std::string>> recorded(const std::string& name) {
    const Copy copy(name);
    Clerk clerk(copy.folder());
    std::vector<std::vector<std::string>> traces(registrations);
    for (std::vector<std::string>& trace : traces) {
        clerk.open();
        clerk.connection().setTrace([&](const std::string& line) { trace.push_back(line); });
        clerk.save();
        clerk.connection().setTrace({});
    }
    return traces;
}

/// One press of "Register", from its checks to the message, on a hospital in memory: what the processor does for it.
/// The two ways have a hospital each, because each of them would find the other's visits.
void registerVisit(benchmark::State& state, const std::string& name) {
    const std::vector<std::vector<std::string>> traces = recorded(name);
    const Copy ofModule(name);
    const Copy ofBare(name);
    Clerk clerk(ofModule.folder());
    Bare bare(ofBare.folder());
    std::vector<Replay> replays;
    replays.reserve(traces.size());
    for (const std::vector<std::string>& trace : traces)
        replays.emplace_back(bare, trace);
    const Pair pair{.module = [&](std::size_t) { return clerk.save(); },
                    .bare = [&](std::size_t turn) { return replays.at(turn).run(); },
                    .sameRows = false,
                    .before = [&](std::size_t) { clerk.open(); }};
    state.counters["statements"] = static_cast<double>(traces.front().size());
    measure(state, pair, Time::OfProcessor);
}

} // namespace

void addRegistration() {
    add("registration", {"10000"}, registerVisit, {.turns = registrations});
}

} // namespace opd::bench
