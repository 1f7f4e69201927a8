#pragma once

#include <string>

/// Who and where this process is.
namespace opd::os {

/// The system's name of the user as whom the process runs; its number where it has none.
std::string loginName();

/// The name of the machine.
std::string hostName();

/// The process's number: no two that run at a time have the same.
long processNumber();

} // namespace opd::os
