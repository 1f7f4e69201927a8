#pragma once

#include "adapters/sqlite/generator/random.h"
#include "base/clock/date_time.h"

#include <string>

namespace opd::adapters::sqlite {

/// The day on which every generated hospital stands, so that its rows do not depend on when it is made.
inline constexpr DateTime generationDay{2026, 6, 30, 0, 0, 0};

/// One synthetic patient.
struct Person {
    std::string lastName, firstName, middleName, title;
    bool male = true;
    DateTime birthDate;
    std::string street, barangay, townCode, telephone, civilStatus, bloodType, occupation;
    std::string nationality = "1", religion = "1";
    std::string father, mother, contact, contactRelation, spouse, employer;
    std::string philHealth, gsis, sss;
};

/// What happened to one visit.
struct Visit {
    enum class State { Open, Billed, Revoked, WalkIn };

    DateTime admitted;
    State state = State::Billed;
};

Person randomPerson(Random& random);
Visit randomVisit(Random& random);

/// The demonstration patient of a number from 1, whose name, sex and birth date do not depend on the seed.
Person demonstrationPerson(int number, Random& random);
inline constexpr int demonstrationPeople = 12;

/// The visit that a demonstration patient has; false when that patient has none.
bool demonstrationVisit(int number, Visit& visit);

} // namespace opd::adapters::sqlite
