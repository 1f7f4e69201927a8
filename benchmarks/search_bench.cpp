#include "bare.h"
#include "pair.h"
#include "workplace.h"

#include "data/rows.h"
#include "registration/statements/queries.h"
#include "search/statements.h"

#include <memory>

namespace opd::bench {

namespace {

using Values = std::vector<std::string>;

/// A hospital with a module and a bare connection on its one file.
struct Measured {
    explicit Measured(const std::string& name) : place(hospital(name), desktop), bare(hospital(name)) {}

    BriefDesktop desktop;
    Workplace place;
    Bare bare;

    std::size_t rowsOf(const ado::Statement& statement) {
        return data::search(place.session(), statement).all().rows.size();
    }
};

Measured& measured(const std::string& name) {
    static std::map<std::string, std::unique_ptr<Measured>> open;
    std::unique_ptr<Measured>& found = open[name];
    if (!found) {
        open.clear(); // one at a time
        open[name] = std::make_unique<Measured>(name);
    }
    return *open[name];
}

/// What is asked for: the module's statement and the values of the bare one.
struct Question {
    ado::Statement statement;
    Values values;
};

/// Asks each question in its turn, the module's way and by the bare statement.
void ask(benchmark::State& state, Measured& at, const std::vector<Question>& questions, const std::string& bare) {
    if (questions.empty()) {
        state.SkipWithError("nobody to look for");
        return;
    }
    const auto question = [&](std::size_t turn) -> const Question& { return questions[turn % questions.size()]; };
    measure(state, {.module = [&](std::size_t turn) { return at.rowsOf(question(turn).statement); },
                    .bare = [&](std::size_t turn) { return at.bare.rows(bare, question(turn).values); }});
}

/// Patients spread over the whole hospital, always the same ones.
std::vector<Values> somePatients(Bare& bare, const std::string& columns, const std::string& condition = "1") {
    return bare.texts("SELECT " + columns +
                      " FROM Patient_Data_tbMaster WHERE rowid % max(1, (SELECT max(rowid) FROM Patient_Data_tbMaster)"
                      " / 2000) = 0 AND " +
                      condition + " LIMIT 1000");
}

/// The columns of a patient in the list.
const std::string listed =
    "SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, m.HouseStreet, m.Barangay "
    "FROM Patient_Data_tbMaster m ";
const std::string ordered = " ORDER BY m.LastName, m.FirstName, m.MiddleName, m.BirthDate";

/// The different names that begin with a text (1 is the beginning, 2 what comes behind it), one after the other.
const std::string differentNames =
    "WITH RECURSIVE names (n) AS (SELECT min(SearchName) FROM Patient_Data_tbMaster WHERE SearchName >= ?1 AND "
    "SearchName < ?2 "
    "UNION ALL SELECT (SELECT min(SearchName) FROM Patient_Data_tbMaster WHERE SearchName > n AND SearchName < ?2) "
    "FROM names WHERE n IS NOT NULL) ";

/// The beginning of a name as it is looked for, and the end of the range.
Values rangeOf(Bare& bare, const std::string& name) {
    return bare.texts("SELECT search_name('" + name + "'), prefix_end(search_name('" + name + "'))").front();
}

std::string dotted(const std::string& isoDate) {
    return isoDate.substr(0, 4) + "." + isoDate.substr(5, 2) + "." + isoDate.substr(8, 2);
}

void nameAndBirthDate(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    std::vector<Question> questions;
    for (const Values& patient : somePatients(at.bare, "LastName, Sex, BirthDate, SearchName, prefix_end(SearchName)"))
        questions.push_back({search::nameSearch(patient[0], patient[1], dotted(patient[2])),
                             {patient[3], patient[4], patient[1], patient[2]}});
    ask(state, at, questions,
        listed +
            "INDEXED BY Patient_Data_tbMaster_BirthDate "
            "WHERE m.BirthDate = ?4 AND m.SearchName >= ?1 AND m.SearchName < ?2 AND m.Sex = ?3" +
            ordered);
}

void rareSurname(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    std::vector<Question> questions;
    for (const Values& patient : at.bare.texts(
             "SELECT min(LastName), Sex, SearchName, prefix_end(SearchName) FROM Patient_Data_tbMaster "
             "WHERE LastName LIKE '%-%' GROUP BY SearchName, Sex HAVING count(*) <= 3 ORDER BY SearchName LIMIT 400"))
        questions.push_back({search::nameSearch(patient[0], patient[1], ""), {patient[2], patient[3], patient[1]}});
    ask(state, at, questions,
        listed +
            "INDEXED BY Patient_Data_tbMaster_Search "
            "WHERE m.SearchName >= ?1 AND m.SearchName < ?2 AND m.Sex = ?3" +
            ordered);
}

void firstNameBehindComma(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    Values values = rangeOf(at.bare, "DELA CRUZ");
    for (const std::string& part : rangeOf(at.bare, "MARIA"))
        values.push_back(part);
    values.emplace_back("F");
    ask(state, at, {{search::nameSearch("DELA CRUZ, MARIA", "F", ""), values}},
        differentNames + listed +
            "INDEXED BY Patient_Data_tbMaster_First WHERE m.SearchName IN (SELECT n FROM names) "
            "AND m.SearchFirst >= ?3 AND m.SearchFirst < ?4 AND m.Sex = ?5" +
            ordered);
}

const std::string bySurnameAndSex = differentNames + listed +
                                    "INDEXED BY Patient_Data_tbMaster_Search "
                                    "WHERE m.SearchName IN (SELECT n FROM names) AND m.Sex = ?3" +
                                    ordered;

void askForBeginning(benchmark::State& state, const std::string& name, const std::string& beginning) {
    Measured& at = measured(name);
    Values values = rangeOf(at.bare, beginning);
    values.emplace_back("F");
    ask(state, at, {{search::nameSearch(beginning, "F", ""), values}}, bySurnameAndSex);
}

void commonSurname(benchmark::State& state, const std::string& name) {
    askForBeginning(state, name, "GARCIA");
}

void oneLetter(benchmark::State& state, const std::string& name) {
    askForBeginning(state, name, "R");
}

void secondTry(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    Values values = rangeOf(at.bare, "DELA CRUZ");
    values.insert(values.end(), {"F", "1980-03-07", "1980", "1980~"});
    ask(state, at, {{search::subSearch("DELA CRUZ", "F", "1980.03.07"), values}},
        differentNames + "SELECT * FROM (" + listed +
            "INDEXED BY Patient_Data_tbMaster_BirthDate "
            "WHERE m.BirthDate = ?4 AND m.SearchName >= ?1 AND m.SearchName < ?2 UNION ALL " +
            listed +
            "INDEXED BY Patient_Data_tbMaster_Search WHERE m.SearchName IN (SELECT n FROM names) AND m.Sex = ?3 "
            "AND m.BirthDate >= ?5 AND m.BirthDate < ?6 AND m.BirthDate <> ?4) m" +
            ordered);
}

void card(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    std::vector<Question> questions;
    for (const Values& patient : somePatients(at.bare, "HospNum"))
        questions.push_back({search::cardSearch(patient[0]), patient});
    ask(state, at, questions, listed + "WHERE m.HospNum = ?1");
}

void askForMember(benchmark::State& state, const std::string& name, search::MemberNumber kind,
                  const std::string& column) {
    Measured& at = measured(name);
    std::vector<Question> questions;
    for (const Values& patient : somePatients(at.bare, column, column + " IS NOT NULL"))
        questions.push_back({search::memberSearch(patient[0], kind), patient});
    ask(state, at, questions, listed + "WHERE m." + column + " = ?1 ORDER BY m.LastName, m.FirstName, m.MiddleName");
}

void philHealth(benchmark::State& state, const std::string& name) {
    askForMember(state, name, search::MemberNumber::PhilHealth, "PHICNum");
}

void gsis(benchmark::State& state, const std::string& name) {
    askForMember(state, name, search::MemberNumber::Gsis, "GSISNum");
}

void sss(benchmark::State& state, const std::string& name) {
    askForMember(state, name, search::MemberNumber::Sss, "SSSNum");
}

/// Somebody new of whom there is one with the same name and age.
void similarRecords(benchmark::State& state, const std::string& name) {
    Measured& at = measured(name);
    std::vector<Question> questions;
    for (const Values& patient : somePatients(
             at.bare, "LastName, FirstName, age_on(BirthDate, now()), born_from(age_on(BirthDate, now()), now()), "
                      "born_until(age_on(BirthDate, now()), now())"))
        questions.push_back({registration::statements::similarRecords(patient[0], patient[1], std::stol(patient[2])),
                             {patient[0], patient[1], patient[3], patient[4]}});
    ask(state, at, questions,
        "SELECT HospNum FROM Patient_Data_tbMaster WHERE LastName = ?1 AND FirstName = ?2 AND BirthDate >= ?3 AND "
        "BirthDate <= ?4");
}

} // namespace

void addSearches() {
    add("name-and-birth-date", sizes(), nameAndBirthDate);
    add("rare-surname", sizes(), rareSurname);
    add("first-name-behind-comma", sizes(), firstNameBehindComma);
    add("common-surname", sizes(), commonSurname, {.turns = 60});
    add("one-letter", sizes(), oneLetter, {.turns = 15});
    add("second-try", sizes(), secondTry);
    add("card", sizes(), card);
    add("phic", sizes(), philHealth);
    add("gsis", sizes(), gsis);
    add("sss", sizes(), sss);
    add("similar-records", sizes(), similarRecords);
}

} // namespace opd::bench
