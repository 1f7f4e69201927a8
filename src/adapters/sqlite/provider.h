#pragma once

#include "platform/ado/provider.h"
#include "platform/clock/clock.h"

#include <memory>

namespace opd::adapters::sqlite {

/// The provider of the embedded hospital database: serves data sources that are folders, each with its `hospital.db`.
/// The clock, which outlives the provider and its links, is the database's server date.
std::shared_ptr<ado::Provider> makeSqliteProvider(const Clock& clock);

} // namespace opd::adapters::sqlite
