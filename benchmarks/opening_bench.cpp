#include "bare.h"
#include "pair.h"
#include "workplace.h"

#include "registration/registration.h"

namespace opd::bench {

namespace {

using search::Opening;

enum class What { Form, StatementsAlone };

/// Opens the registration form, whole but for a screen, and closes it, or sends nothing but its statements; bare are
/// the same statements.
void open(benchmark::State& state, What what, const std::string& name, const std::string& patients,
          const std::function<Opening(const std::vector<std::string>& patient)>& openingOf) {
    BriefDesktop desktop;
    Workplace place(hospital(name), desktop);
    Bare bare(hospital(name));
    registration::frmRegistration form(place.session());
    std::vector<Opening> openings;
    std::vector<Replay> replays;
    std::vector<std::vector<std::string>> traces;
    for (const std::vector<std::string>& patient : bare.texts(patients)) {
        openings.push_back(openingOf(patient));
        std::vector<std::string> trace;
        place.connection().setTrace([&](const std::string& line) { trace.push_back(line); });
        form.open(openings.back());
        place.connection().setTrace({});
        state.counters["statements"] = static_cast<double>(trace.size());
        replays.emplace_back(bare, trace);
        traces.push_back(std::move(trace));
    }
    const std::size_t count = openings.size();
    const auto openForm = [&](std::size_t turn) {
        form.open(openings[turn % count]);
        return std::size_t{0};
    };
    const auto sendStatements = [&](std::size_t turn) {
        for (const std::string& statement : traces[turn % count])
            place.connection().run({.text = statement, .effect = ado::Effect::Reads});
        return std::size_t{0};
    };
    measure(state, {.module = what == What::Form ? Pair::Way(openForm) : Pair::Way(sendStatements),
                    .bare = [&](std::size_t turn) { return replays[turn % count].run(); },
                    .sameRows = false});
}

template <What what> void openNew(benchmark::State& state, const std::string& name) {
    open(state, what, name, "SELECT 1", [](const auto&) { return Opening{"NEW", "NEW", "(TO BE GENERATED)"}; });
}

template <What what> void openOnFile(benchmark::State& state, const std::string& name) {
    open(state, what, name,
         "SELECT HospNum FROM Patient_Data_tbMaster m WHERE rowid > 100 AND NOT EXISTS (SELECT 1 FROM "
         "Patient_Data_tbOutPatient v WHERE v.HospNum = m.HospNum) AND NOT EXISTS (SELECT 1 FROM "
         "Patient_Data_tbMasterAccount a WHERE a.HospNum = m.HospNum) LIMIT 64",
         [](const auto& patient) {
             return Opening{"New", patient[0], "(TO BE GENERATED)"};
         });
}

template <What what> void openEdit(benchmark::State& state, const std::string& name) {
    open(state, what, name,
         "SELECT HospNum, IDNum FROM Patient_Data_tbOutPatient WHERE BillingDate IS NULL AND dcrDate IS NULL AND "
         "OPDStatus <> 'R' LIMIT 64",
         [](const auto& visit) {
             return Opening{"Edit", visit[0], visit[1]};
         });
}

} // namespace

void addOpenings() {
    add("open-new", sizes(), openNew<What::Form>);
    add("open-on-file", sizes(), openOnFile<What::Form>);
    add("open-edit", sizes(), openEdit<What::Form>);
    add("statements-new", sizes(), openNew<What::StatementsAlone>);
    add("statements-on-file", sizes(), openOnFile<What::StatementsAlone>);
    add("statements-edit", sizes(), openEdit<What::StatementsAlone>);
}

} // namespace opd::bench
