#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace opd::files {

/// A text file of "[section]" lines and "key=value" lines below them. A value is everything behind the first "=", as it
/// stands: blanks at its ends, ";", "=", "#" and UTF-8 included. Lines that begin with ";" or "#" are remarks.
/// Sections and keys are found in any letter case.
class IniFile {
  public:
    /// Reads the file; a missing one is empty. Throws std::runtime_error when it is there but cannot be read.
    explicit IniFile(std::filesystem::path file);

    /// The value, or an empty text.
    std::string get(const std::string& section, const std::string& key) const;

    bool hasSection(const std::string& section) const;

    /// Changes a value, adding section and key where they are missing; every other line stays as it is. Throws
    /// std::invalid_argument for a text that the file cannot hold: line breaks anywhere, "=" in a key.
    void set(const std::string& section, const std::string& key, const std::string& value);

    void removeSection(const std::string& section);

    /// Writes the file whole or not at all, with mode 0600. Throws std::runtime_error.
    void save() const;

  private:
    struct Place {
        std::size_t index; ///< of the line
        bool found;        ///< false: where the line would be put
    };
    Place sectionLine(const std::string& section) const;
    Place keyLine(std::size_t sectionIndex, const std::string& key) const;

    std::filesystem::path m_file;
    std::vector<std::string> m_lines;
};

} // namespace opd::files
