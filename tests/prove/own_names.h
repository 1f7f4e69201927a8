#pragma once

#include "ado/provider.h"

#include <memory>
#include <string>
#include <string_view>

namespace opd::prove {

inline constexpr std::string_view ownPrefix = "OPDProof_";
inline constexpr const char* databases[] = {"LABORATORY", "Patient_Data", "Build_File", "billing"};

std::string ownName(std::string_view database); ///< "OPDProof_Patient_Data"

/// A statement or script with the databases that it names under their own names. What stands between quotes is data and
/// stays, unless a server reads it as a name or as statements: the argument of DB_ID, OBJECT_ID and EXEC.
std::string underOwnNames(std::string_view text);

/// The provider, with everything that is sent through it under own names.
std::shared_ptr<ado::Provider> withOwnNames(std::shared_ptr<ado::Provider> provider);

} // namespace opd::prove
