// The embedded database keeps the contract of a hospital's database.
#include "adapters/sqlite/hospital.h"
#include "contract/contract.h"

namespace opd::tests {

INSTANTIATE_TEST_SUITE_P(Embedded, Contract,
                         testing::Values(Provided{"embedded", [] { return std::make_unique<EmbeddedHospital>(); }}),
                         [](const auto& provided) { return std::string{provided.param.name}; });

} // namespace opd::tests
