#include "demonstration/person.h"

#include "demonstration/codes.h"
#include "demonstration/names.h"

#include <array>

namespace opd::demonstration {

namespace {

std::string digits(Random& random, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += static_cast<char>('0' + random.below(10));
    return text;
}

std::string surname(Random& random) {
    std::string name{random.pickCommon(surnames)};
    if (random.chance(3))
        name += "-" + std::string{random.pick(surnames)};
    return name;
}

/// Children are children, and the older somebody is, the likelier married or widowed.
std::string civilStatus(Random& random, int age) {
    if (age == 0)
        return "0";
    if (age < 20)
        return "1";
    if (age > 65 && random.chance(40))
        return "3";
    return random.chance(std::min(85, age * 2)) ? "2" : random.chance(8) ? "4" : "1";
}

void giveFamily(Random& random, Person& person, int age) {
    person.father = std::string{random.pick(maleNames)} + " " + person.lastName;
    person.mother = std::string{random.pick(femaleNames)} + " " + person.middleName;
    if (person.civilStatus == "2") {
        person.spouse = std::string{random.pick(person.male ? femaleNames : maleNames)} + " " + person.lastName;
        person.contact = person.spouse;
        person.contactRelation = person.male ? "WIFE" : "HUSBAND";
    } else if (age > 50) {
        person.contact = std::string{random.pick(femaleNames)} + " " + person.lastName;
        person.contactRelation = "DAUGHTER";
    } else {
        person.contact = person.mother;
        person.contactRelation = "MOTHER";
    }
}

void giveWork(Random& random, Person& person, int age) {
    person.occupation = age < 5    ? ""
                        : age < 20 ? "STUDENT"
                        : age > 65 ? "RETIRED"
                                   : std::string{random.pick(occupations)};
    if (age < 20)
        return;
    if (age <= 65 && random.chance(40))
        person.employer = random.chance(50) ? "TANGLAW FOODS" : "BUKID TEXTILE MILLS";
    if (random.chance(60))
        person.philHealth = digits(random, 2) + "-" + digits(random, 9) + "-" + digits(random, 1);
    if (random.chance(15))
        person.gsis = digits(random, 11);
    if (random.chance(45))
        person.sss = digits(random, 2) + "-" + digits(random, 7) + "-" + digits(random, 1);
}

void giveRest(Random& random, Person& person, const DateTime& today) {
    const int age = yearsBetween(person.birthDate, today);
    static constexpr std::array<std::string_view, 6> bloodTypes{"O+", "A+", "B+", "AB+", "O-", "A-"};
    static constexpr std::array<std::string_view, 8> barangays{
        "POBLACION", "SAN ROQUE", "SAN ISIDRO", "BAGUMBAYAN", "SANTA CRUZ", "MALANDAY", "BAGONG SILANG", "SANTO NIÑO"};
    person.street = std::to_string(random.between(1, 999)) + " " + std::string{random.pick(streets)};
    person.barangay = random.pick(barangays);
    person.townCode = random.pickCommon(townCodes);
    person.telephone = random.chance(70) ? "8" + digits(random, 3) + "-" + digits(random, 4) : "";
    person.bloodType = random.chance(50) ? std::string{random.pickCommon(bloodTypes)} : "";
    if (random.chance(3))
        person.nationality = std::to_string(random.between(2, 12));
    if (random.chance(15))
        person.religion = std::to_string(random.between(2, 10));
    person.civilStatus = civilStatus(random, age);
    giveFamily(random, person, age);
    giveWork(random, person, age);
}

} // namespace

DateTime momentBefore(const DateTime& day, long days, int hour, int minute) {
    DateTime moment = addDays(day, -days).date();
    moment.hour = hour;
    moment.minute = minute;
    return moment;
}

Person randomPerson(const DateTime& today, Random& random) {
    Person person;
    person.male = random.chance(48);
    person.lastName = surname(random);
    person.firstName = random.pickCommon(person.male ? maleNames : femaleNames);
    person.middleName = random.pickCommon(surnames);
    if (person.male && random.chance(4))
        person.title = random.chance(70) ? "JR" : "III";
    // Young people are more than old ones.
    const int years = std::min(random.below(96), random.below(96));
    person.birthDate = addDays(today, -(years * 365L + years / 4 + random.below(365)));
    giveRest(random, person, today);
    return person;
}

Visit randomVisit(const DateTime& today, Random& random) {
    Visit visit;
    visit.admitted = addDays(today, -random.between(1, 900));
    visit.admitted.hour = random.between(7, 17);
    visit.admitted.minute = random.below(60);
    const int kind = random.below(100);
    visit.state = kind < 12   ? Visit::State::Open
                  : kind < 18 ? Visit::State::Revoked
                  : kind < 25 ? Visit::State::WalkIn
                              : Visit::State::Billed;
    return visit;
}

Person demonstrationPerson(int number, const DateTime& today, Random& random) {
    struct Fixed {
        const char* lastName;
        const char* firstName;
        const char* middleName;
        bool male;
        DateTime birthDate;
    };
    const std::array<Fixed, demonstrationPeople> people{{
        {"DELA CRUZ", "JUAN", "SANTOS", true, {1980, 3, 7}},
        {"SANTOS", "MARIA", "REYES", false, {1975, 12, 25}},
        {"PEÑA", "PEDRO", "LUNA", true, {1990, 6, 12}},
        {"REYES", "ANA", "GARCIA", false, {1985, 8, 15}},
        {"REYES", "ANNA", "CRUZ", false, {1985, 8, 15}},
        {"BAUTISTA", "ROSA", "AQUINO", false, {1968, 2, 29}},
        {"VILLANUEVA", "RAMON", "TORRES", true, {1959, 11, 3}},
        {"MERCADO", "BEA", "PASCUAL", false, addDays(today, -1137)},
        {"MENDOZA", "CORAZON", "LIM", false, {1948, 9, 8}},
        {"GARCIA", "NESTOR", "DIAZ", true, {1972, 1, 31}},
        {"FLORES", "LIGAYA", "RAMOS", false, {1995, 4, 4}},
        {"SANTOS-CRUZ", "ISABEL", "DE LEON", false, {1988, 10, 10}},
    }};
    const Fixed& fixed = people.at(static_cast<std::size_t>(number - 1));
    Person person;
    person.lastName = fixed.lastName;
    person.firstName = fixed.firstName;
    person.middleName = fixed.middleName;
    person.male = fixed.male;
    person.birthDate = fixed.birthDate;
    giveRest(random, person, today);
    person.townCode = "1000";
    person.nationality = person.religion = "1";
    person.philHealth = person.gsis = person.sss = "";
    if (number == 9) {
        person.philHealth = "12-345678901-2";
        person.gsis = "12345678901";
        person.sss = "34-1234567-8";
    }
    return person;
}

bool demonstrationVisit(int number, const DateTime& today, Visit& visit) {
    switch (number) {
    case 2:
        visit = {momentBefore(today, 1, 9, 15), Visit::State::Open};
        return true;
    case 3:
        visit = {momentBefore(today, 512, 10, 30), Visit::State::Billed};
        return true;
    case 6:
        visit = {momentBefore(today, 18, 8, 5), Visit::State::Revoked};
        return true;
    case 11:
        visit = {momentBefore(today, 10, 14, 45), Visit::State::Open};
        return true;
    default:
        return false;
    }
}

} // namespace opd::demonstration
