#pragma once

#include "base/clock/date_time.h"
#include "demonstration/random.h"

#include <string>

namespace opd::demonstration {

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

/// A time of day so many days before the given one.
DateTime momentBefore(const DateTime& day, long days, int hour, int minute);

/// Ages and visits are reckoned from `today`.
Person randomPerson(const DateTime& today, Random& random);
Visit randomVisit(const DateTime& today, Random& random);

/// The demonstration patient of a number from 1, whose name and sex do not depend on the seed, and whose birth date
/// does not depend on the day either, but for the child: it is three years old.
Person demonstrationPerson(int number, const DateTime& today, Random& random);
inline constexpr int demonstrationPeople = 12;

/// The visit that a demonstration patient has; false when that patient has none.
bool demonstrationVisit(int number, const DateTime& today, Visit& visit);

} // namespace opd::demonstration
