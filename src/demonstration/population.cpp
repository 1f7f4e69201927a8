#include "demonstration/population.h"

#include "demonstration/codes.h"
#include "demonstration/names.h"
#include "demonstration/person.h"

#include <utility>

namespace opd::demonstration {

namespace {

constexpr int parent = 2;
constexpr int confinedPerson = 7;
constexpr int employeesAccount = 10;
constexpr std::int64_t lastOpdNumberBefore = 2600000000;

std::string hospNum(int number) {
    return numbered("", number, 8);
}

/// Turns the people of one hospital into rows.
class Writer {
  public:
    Writer(Rows& rows, const DateTime& today) : m_rows(rows), m_today(today) {}

    void write(const std::string& number, const Person& person) {
        m_rows.add(m_master, {number, person.lastName, person.firstName, person.middleName, person.title, person.street,
                              person.barangay, person.townCode, person.male ? "M" : "F", person.birthDate,
                              person.telephone, person.civilStatus, person.bloodType, person.occupation,
                              person.employer, orNull(person.philHealth), orNull(person.gsis), orNull(person.sss)});
        const bool employed = !person.employer.empty();
        m_rows.add(m_extended, {number, person.nationality, person.religion, person.spouse, person.mother,
                                person.father, person.employer, person.contact, person.contactRelation,
                                employed ? 2 : 0, employed ? 1 : 0, person.philHealth.empty() ? 0 : 1});
    }

    void write(const std::string& number, const Visit& visit, Random& random) {
        const bool billed = visit.state == Visit::State::Billed || visit.state == Visit::State::WalkIn;
        const char* const status = visit.state == Visit::State::Revoked  ? "R"
                                   : visit.state == Visit::State::WalkIn ? "W"
                                                                         : "";
        const std::string doctor = numbered("D", random.between(1, doctorCount), 3);
        const std::string pressure =
            std::to_string(random.between(95, 150)) + "/" + std::to_string(random.between(60, 95));
        m_rows.add(m_visit, {std::to_string(++m_lastVisit) + "B",
                             number,
                             visit.admitted,
                             number,
                             "P",
                             "C",
                             "W",
                             "O",
                             std::string{random.pick(serviceCodes)},
                             doctor,
                             std::string{random.pick(complaints)},
                             std::to_string(random.between(145, 185)),
                             std::to_string(random.between(45, 95)),
                             "36." + std::to_string(random.below(10)),
                             pressure,
                             std::to_string(random.between(60, 100)),
                             std::to_string(random.between(14, 22)),
                             status,
                             visit.state == Visit::State::WalkIn ? 1 : 0,
                             "DEMO",
                             billed ? ado::Value{addDays(visit.admitted, 0)} : ado::Value{}});
    }

    const DateTime& today() const { return m_today; }

    void giveDependent(const std::string& number, const char* name, const DateTime& birthDate) {
        m_rows.add(m_dependent, {number, name, birthDate});
    }

    void confine(const std::string& number) {
        m_rows.add(m_admission, {std::to_string(++m_lastAdmission), number, momentBefore(m_today, 2, 20, 0)});
    }

    void makeEmployeesAccount(const std::string& number) { m_rows.add(m_account, {number}); }

    void setCounters(int lastPatient) {
        m_rows.setCounter("HospNum", lastPatient);
        m_rows.setCounter("OPDID", m_lastVisit);
        m_rows.setCounter("FileNum", 0);
    }

  private:
    static ado::Value orNull(const std::string& text) { return text.empty() ? ado::Value{} : ado::Value{text}; }

    Rows& m_rows;
    DateTime m_today;
    const Table m_master{"tbMaster",
                         {"HospNum", "LastName", "FirstName", "MiddleName", "Title", "HouseStreet", "Barangay",
                          "ZipCode", "Sex", "BirthDate", "telnum", "CivilStatus", "BloodType", "Occupation", "Employer",
                          "PHICNum", "GSISNum", "SSSNum"}};
    const Table m_extended{"tbMaster2",
                           {"HospNum", "NationalityID", "ReligionID", "Spouse", "mother", "Father", "Employer",
                            "ContactName", "ContactRelation", "EmploymentType", "EmploymentLocation", "PhilHealth"}};
    const Table m_visit{"tbOutPatient",
                        {"IDNum",           "HospNum",          "AdmDate",   "AccountNum",  "HospPlan",
                         "PatientType",     "ConsultationType", "VisitKind", "ServiceID1",  "DoctorID1",
                         "ChiefComplaints", "Height",           "Weight",    "Temperature", "BloodPressure",
                         "PulseRate",       "RespiratoryRate",  "OPDStatus", "isWalkIn",    "UserID",
                         "BillingDate"}};
    const Table m_dependent{"tbMasterDependent", {"SeqNum", "Name", "BirthDate"}};
    const Table m_admission{"tbPatient", {"IdNum", "HospNum", "AdmDate"}};
    const Table m_account{"tbMasterAccount", {"HospNum"}};
    std::int64_t m_lastVisit = lastOpdNumberBefore;
    int m_lastAdmission = 50000;
};

void writeDemonstrationPerson(Writer& writer, int number, Random& random) {
    const std::string key = hospNum(number);
    writer.write(key, demonstrationPerson(number, writer.today(), random));
    if (Visit visit; demonstrationVisit(number, writer.today(), visit))
        writer.write(key, visit, random);
    if (number == parent) {
        writer.giveDependent(key, "SANTOS, PAOLO REYES", {2001, 4, 18});
        writer.giveDependent(key, "SANTOS, CLARA REYES", {2004, 9, 2});
    }
    if (number == confinedPerson)
        writer.confine(key);
    if (number == employeesAccount)
        writer.makeEmployeesAccount(key);
}

void writeRandomPerson(Writer& writer, int number, Person& previous, Random& random) {
    const std::string key = hospNum(number);
    Person person = randomPerson(writer.today(), random);
    if (random.chance(2)) { // a namesake of the same day
        person.lastName = previous.lastName;
        person.birthDate = previous.birthDate;
    }
    writer.write(key, person);
    for (int visits = random.below(4) - 1; visits > 0; --visits)
        writer.write(key, randomVisit(writer.today(), random), random);
    if (random.chance(1))
        writer.confine(key);
    previous = std::move(person);
}

} // namespace

void generatePatients(Rows& rows, const Population& population, const Progress& progress) {
    Random random(population.seed);
    Writer writer(rows, population.today);
    Person previous = demonstrationPerson(1, population.today, random);
    const int count = population.patients;
    constexpr int progressStep = 100;
    for (int number = 1; number <= count; ++number) {
        if (number <= demonstrationPeople)
            writeDemonstrationPerson(writer, number, random);
        else
            writeRandomPerson(writer, number, previous, random);
        if (progress && (number % progressStep == 0 || number == count))
            progress(number, count);
    }
    writer.setCounters(count);
}

} // namespace opd::demonstration
