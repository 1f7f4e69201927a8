#pragma once

#include "ado/statement.h"

#include <string>

namespace opd::tests {

/// A statement that a test puts together.
inline ado::Statement sql(const std::string& text) {
    return ado::Statement::fromOutside(text);
}

} // namespace opd::tests
