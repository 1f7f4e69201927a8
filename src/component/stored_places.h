#pragma once

#include "adapters/settings/ini_store.h"
#include "ui/window_places.h"

namespace opd {

/// The windows' places in a settings file of their own, so that the one with the password is not written at every
/// closing of a window.
class StoredPlaces final : public ui::WindowPlaces {
  public:
    explicit StoredPlaces(settings::IniStore store) : m_store(std::move(store)) {}

    std::string placeOf(const std::string& window) const override;
    void keep(const std::string& window, const std::string& place) override;

  private:
    settings::IniStore m_store;
};

} // namespace opd
