#include "bare.h"
#include "pair.h"
#include "workplace.h"

#include "registration/registration.h"

namespace opd::bench {

namespace {

using search::Opening;

/// Opens the registration form, whole but for a screen, and closes it; bare are the statements that it sends.
void open(benchmark::State& state, const std::string& name, const std::string& patients,
          const std::function<Opening(const std::vector<std::string>& patient)>& openingOf) {
    BriefDesktop desktop;
    Workplace place(hospital(name), desktop);
    Bare bare(hospital(name));
    registration::frmRegistration form(place.session());
    std::vector<Opening> openings;
    std::vector<Replay> replays;
    for (const std::vector<std::string>& patient : bare.texts(patients)) {
        openings.push_back(openingOf(patient));
        std::vector<std::string> trace;
        place.connection().setTrace([&](const std::string& line) { trace.push_back(line); });
        form.open(openings.back());
        place.connection().setTrace({});
        state.counters["statements"] = static_cast<double>(trace.size());
        replays.emplace_back(bare, trace);
    }
    const std::size_t count = openings.size();
    measure(state, {.module =
                        [&](std::size_t turn) {
                            form.open(openings[turn % count]);
                            return std::size_t{0};
                        },
                    .bare = [&](std::size_t turn) { return replays[turn % count].run(); },
                    .sameRows = false});
}

void openNew(benchmark::State& state, const std::string& name) {
    open(state, name, "SELECT 1", [](const auto&) { return Opening{"NEW", "NEW", "(TO BE GENERATED)"}; });
}

void openOnFile(benchmark::State& state, const std::string& name) {
    open(state, name,
         "SELECT HospNum FROM Patient_Data_tbMaster m WHERE rowid > 100 AND NOT EXISTS (SELECT 1 FROM "
         "Patient_Data_tbOutPatient v WHERE v.HospNum = m.HospNum) AND NOT EXISTS (SELECT 1 FROM "
         "Patient_Data_tbMasterAccount a WHERE a.HospNum = m.HospNum) LIMIT 64",
         [](const auto& patient) {
             return Opening{"New", patient[0], "(TO BE GENERATED)"};
         });
}

void openEdit(benchmark::State& state, const std::string& name) {
    open(state, name,
         "SELECT HospNum, IDNum FROM Patient_Data_tbOutPatient WHERE BillingDate IS NULL AND dcrDate IS NULL AND "
         "OPDStatus <> 'R' LIMIT 64",
         [](const auto& visit) {
             return Opening{"Edit", visit[0], visit[1]};
         });
}

} // namespace

void addOpenings() {
    add("open-new", sizes(), openNew);
    add("open-on-file", sizes(), openOnFile);
    add("open-edit", sizes(), openEdit);
}

} // namespace opd::bench
