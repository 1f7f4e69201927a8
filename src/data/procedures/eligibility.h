#pragma once

#include "ui/desktop.h"

#include <string>

namespace opd::data {

/// True when a patient of this sex ("M", "F" or empty) and age may get the service. Otherwise the clerk was told why
/// not, or answered the question about a young obstetric patient with No. Codes and ages that are no numbers count as
/// 0.
bool CheckServiceEligibility(ui::Desktop& desktop, const std::string& serviceCode, const std::string& sex,
                             const std::string& age);

/// Puts a line under what is in the text already, or makes it the text when that is blank.
void AppendMessageLine(std::string& text, const std::string& line);

} // namespace opd::data
