#pragma once

#include <string>

namespace opd::settings {

/// The workstation user's settings: texts under an application, a section and a key.
class Store {
  public:
    virtual ~Store() = default;

    /// The stored text, or an empty one. Throws std::runtime_error when the store exists but cannot be read.
    virtual std::string get(const std::string& application, const std::string& section,
                            const std::string& key) const = 0;
};

} // namespace opd::settings
