#include "base/files/ini_file.h"

#include "base/os/safe_file.h"
#include "base/text/text.h"

#include <fstream>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace opd::files {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isRemark(const std::string& line) {
    const std::string text = text::trimmed(line);
    return text.empty() || text[0] == ';' || text[0] == '#';
}

std::optional<std::string> sectionOf(const std::string& line) {
    const std::string text = text::trimmed(line);
    if (text.size() < 2 || text.front() != '[' || text.back() != ']')
        return std::nullopt;
    return text.substr(1, text.size() - 2);
}

void refuseLineBreaks(const std::string& text) {
    if (text.find_first_of(std::string_view{"\r\n\0", 3}) != std::string::npos)
        throw std::invalid_argument("A setting cannot hold a line break.");
}

} // namespace

IniFile::IniFile(std::filesystem::path file) : m_file(std::move(file)) {
    std::error_code error;
    const std::filesystem::file_type type = std::filesystem::status(m_file, error).type();
    if (type == std::filesystem::file_type::not_found)
        return;
    if (type != std::filesystem::file_type::regular) // a pipe would be waited for
        throw std::runtime_error("Cannot read \"" + m_file.string() +
                                 "\": " + (error ? error.message() : "it is no plain file") + ".");
    std::ifstream in(m_file, std::ios::binary);
    std::string line;
    while (std::getline(in, line)) {
        if (m_lines.empty() && line.starts_with(byteOrderMark))
            line.erase(0, byteOrderMark.size());
        if (line.ends_with('\r'))
            line.pop_back();
        m_lines.push_back(line);
    }
    if (!in.eof() || in.bad())
        throw std::runtime_error("Cannot read \"" + m_file.string() + "\".");
}

IniFile::Place IniFile::sectionLine(const std::string& section) const {
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        if (const auto name = sectionOf(m_lines[i]); name && text::equalsIgnoringCase(*name, section))
            return {i, true};
    return {m_lines.size(), false};
}

IniFile::Place IniFile::keyLine(std::size_t sectionIndex, const std::string& key) const {
    std::size_t behindLast = sectionIndex + 1;
    for (std::size_t i = sectionIndex + 1; i < m_lines.size() && !sectionOf(m_lines[i]); ++i) {
        const std::size_t equals = m_lines[i].find('=');
        if (isRemark(m_lines[i]) || equals == std::string::npos)
            continue;
        if (text::equalsIgnoringCase(text::trimmed(m_lines[i].substr(0, equals)), key))
            return {i, true};
        behindLast = i + 1;
    }
    return {behindLast, false};
}

std::string IniFile::get(const std::string& section, const std::string& key) const {
    const Place header = sectionLine(section);
    if (!header.found)
        return {};
    const Place line = keyLine(header.index, key);
    return line.found ? m_lines[line.index].substr(m_lines[line.index].find('=') + 1) : std::string{};
}

bool IniFile::hasSection(const std::string& section) const {
    return sectionLine(section).found;
}

void IniFile::set(const std::string& section, const std::string& key, const std::string& value) {
    for (const std::string* text : {&section, &key, &value})
        refuseLineBreaks(*text);
    if (key.find('=') != std::string::npos || isRemark(key) || sectionOf(key))
        throw std::invalid_argument("\"" + key + "\" cannot name a setting.");
    const Place header = sectionLine(section);
    if (!header.found)
        m_lines.push_back("[" + section + "]");
    const Place line = keyLine(header.index, key);
    if (line.found)
        m_lines[line.index] = key + "=" + value;
    else
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(line.index), key + "=" + value);
}

void IniFile::removeSection(const std::string& section) {
    const Place header = sectionLine(section);
    if (!header.found)
        return;
    std::size_t end = header.index + 1;
    while (end < m_lines.size() && !sectionOf(m_lines[end]))
        ++end;
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(header.index),
                  m_lines.begin() + static_cast<std::ptrdiff_t>(end));
}

void IniFile::save() const {
    std::string content;
    for (const std::string& line : m_lines)
        content += line + "\n";
    os::writePrivately(m_file, content);
}

} // namespace opd::files
