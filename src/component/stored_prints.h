#pragma once

#include "adapters/settings/ini_store.h"
#include "ports/report/output.h"

namespace opd {

/// The printers and copies of the kinds of paper in a settings file of their own, a section for each kind.
class StoredPrints final : public report::PrintMemory {
  public:
    explicit StoredPrints(settings::IniStore store) : m_store(std::move(store)) {}

    report::PrintChoice choiceFor(const std::string& kind) const override;
    void keep(const std::string& kind, const report::PrintChoice& choice) override;

  private:
    settings::IniStore m_store;
};

} // namespace opd
