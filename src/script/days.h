#pragma once

#include "base/clock/date_time.h"

#include <string>

namespace opd::script {

/// The word with a date, "MM/dd/yyyy", in the place of each "{today}", "{today-2}" (the day before yesterday) and
/// "{today+30}". Throws std::runtime_error where something else follows "{today".
std::string withDays(const std::string& word, const DateTime& today);

} // namespace opd::script
