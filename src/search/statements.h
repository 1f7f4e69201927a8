#pragma once

#include "ado/statement.h"

#include <string>

/// Every statement that the search window, the lookups and the dialogs send. What finds patients trims its criteria.
namespace opd::search {

/// Kinds of member number that sp_Adm_MasterPatientSearchNew tells apart.
enum class MemberNumber { PhilHealth = 1, Gsis = 2, Sss = 3 };

ado::Statement cardSearch(const std::string& hospNum);
ado::Statement memberSearch(const std::string& number, MemberNumber kind);

/// `sex` is "M", "F" or empty, `birthDate` "yyyy.mm.dd" or empty.
ado::Statement nameSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate);

/// The second try, when a search by name found nobody.
ado::Statement subSearch(const std::string& lastName, const std::string& sex, const std::string& birthDate);

/// What sp_Bui_Search_Doctor is asked for.
enum class DoctorSearch { OnDuty = 5, List = 6, One = 7 };

ado::Statement doctorSearch(const std::string& serviceCode, const std::string& criteria, DoctorSearch kind);
ado::Statement doctorsOfService(const std::string& serviceCode, bool allDoctors); ///< the least consulted first
ado::Statement barangaySearch(const std::string& code);
ado::Statement admissionTypeSearch(const std::string& code);
ado::Statement complaintSearch(const std::string& text);

ado::Statement serviceOf(const std::string& code);
ado::Statement allergyOf(const std::string& code);
ado::Statement doctorOf(const std::string& code);

} // namespace opd::search
