#pragma once

#include "data/statement.h"

#include <string>

/// The statements that find patients. Every criterion is trimmed here.
namespace opd::search {

/// Kinds of member number that sp_Adm_MasterPatientSearchNew tells apart.
enum class MemberNumber { PhilHealth = 1, Gsis = 2, Sss = 3 };

data::Statement cardSearch(const std::string& hospNum);
data::Statement memberSearch(const std::string& number, MemberNumber kind);

/// `sex` is "M", "F" or empty, `birthDate` "yyyy.mm.dd" or empty.
data::Statement nameSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate);

/// The second try, when a search by name found nobody.
data::Statement subSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate);

} // namespace opd::search
