#pragma once

#include "ports/settings/store.h"

#include <filesystem>
#include <string>
#include <vector>

namespace opd::settings {

/// The settings in an INI file: the file that is named, for whatever application is asked for, or, where none is (an
/// empty path), one per application in the user's folder for settings. The file is read afresh every time.
class IniStore final : public Store {
  public:
    explicit IniStore(std::filesystem::path file = {}) : m_file(std::move(file)) {}

    /// Throws std::runtime_error also for a file that others than its owner can read or change.
    std::string get(const std::string& application, const std::string& section, const std::string& key) const override;

    struct Value {
        std::string section;
        std::string key;
        std::string text; ///< as it stands
    };

    /// Stores all values in one step; the file ends up whole, with mode 0600. Throws std::runtime_error when it cannot
    /// be written and std::invalid_argument for a text with line breaks, and has stored nothing then.
    void set(const std::string& application, const std::vector<Value>& values);

    /// The file that holds an application's settings.
    std::filesystem::path fileOf(const std::string& application) const;

  private:
    std::filesystem::path m_file;
};

/// A store in which the only setting is "Server".
class FixedStore final : public Store {
  public:
    explicit FixedStore(std::string server) : m_server(std::move(server)) {}

    std::string get(const std::string& application, const std::string& section, const std::string& key) const override;

  private:
    std::string m_server;
};

} // namespace opd::settings
