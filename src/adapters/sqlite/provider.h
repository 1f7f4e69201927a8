#pragma once

#include "ado/provider.h"
#include "base/clock/clock.h"

#include <chrono>
#include <functional>
#include <memory>

namespace opd::adapters::sqlite {

/// Gives what a link needs to live; it is held by the link to its end.
using NeedOfLink = std::function<std::shared_ptr<void>()>;

/// The provider of the embedded hospital database: serves data sources that are folders, each with its `hospital.db`.
/// The clock, which outlives the provider and its links, is the database's server date. `patience` is how long opening
/// waits for a hospital that others hold.
std::shared_ptr<ado::Provider> makeSqliteProvider(const Clock& clock, NeedOfLink needOfLink = {},
                                                  std::chrono::milliseconds patience = std::chrono::seconds{5});

} // namespace opd::adapters::sqlite
