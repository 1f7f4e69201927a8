// A hospital behind a database server keeps the contract of a hospital's database, driver and wire between them.
#include "adapters/odbc/served_hospital.h"
#include "contract/contract.h"

namespace opd::tests {

INSTANTIATE_TEST_SUITE_P(Served, Contract,
                         testing::Values(Provided{"served", [] { return std::make_unique<ServedHospital>(); }}),
                         [](const auto& provided) { return std::string{provided.param.name}; });

} // namespace opd::tests
