#pragma once

/// What several rules tell the clerk.
namespace opd::registration {

inline constexpr const char* missingBirthDate = "Please enter the patient's Birthdate";
inline constexpr const char* invalidDate = "Invalid date...";

} // namespace opd::registration
