#include "adapters/report/markup.h"

#include <algorithm>
#include <array>
#include <pugixml.hpp>
#include <sstream>
#include <stdexcept>

namespace opd::adapters::reporting {

namespace {

template <std::size_t Count> bool isOneOf(const std::string& name, const std::array<const char*, Count>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool endsLine(const std::string& name) {
    return isOneOf(name, std::array{"p", "div", "tr", "li", "br", "h1", "h2", "h3", "h4"});
}

bool endsCell(const std::string& name) {
    return isOneOf(name, std::array{"td", "th"});
}

/// The text of a piece of markup as it is read: runs of blanks are one, cells stand two blanks apart.
class Reader {
  public:
    void read(const pugi::xml_node& node) {
        if (node.type() == pugi::node_pcdata)
            add(node.value());
        for (const pugi::xml_node& child : node.children())
            read(child);
        if (endsLine(node.name()))
            endLine();
        else if (endsCell(node.name()) && !m_line.empty())
            m_gap = "  ";
    }

    std::string text() {
        endLine();
        return m_text;
    }

  private:
    void add(const std::string& content) {
        constexpr const char* blanks = " \t\r\n";
        std::istringstream words(content);
        bool first = content.find_first_of(blanks) != 0;
        for (std::string word; words >> word; first = false)
            m_line += (m_line.empty() || (first && m_gap.empty()) ? "" : gap(m_gap)) + word, m_gap.clear();
        if (!content.empty() && content.find_last_of(blanks) == content.size() - 1 && m_gap.empty())
            m_gap = " ";
    }

    static std::string gap(const std::string& wanted) { return wanted.empty() ? " " : wanted; }

    void endLine() {
        if (!m_line.empty())
            m_text += m_line + "\n";
        m_line.clear();
        m_gap.clear();
    }

    std::string m_text;
    std::string m_line;
    std::string m_gap; ///< what stands before the next word
};

std::string textOf(const pugi::xml_node& node) {
    Reader reader;
    reader.read(node);
    return reader.text();
}

void replaceMissingImages(const pugi::xml_node& root, const std::function<bool(const std::string&)>& haveImage) {
    for (pugi::xpath_node found : root.select_nodes(".//img")) {
        pugi::xml_node image = found.node();
        if (haveImage(image.attribute("src").value()))
            continue;
        pugi::xml_node parent = image.parent();
        parent.insert_child_before(pugi::node_pcdata, image).set_value(image.attribute("alt").value());
        parent.remove_child(image);
    }
}

std::string contentOf(const pugi::xml_node& root) {
    std::ostringstream content;
    for (const pugi::xml_node& child : root.children())
        child.print(content, "", pugi::format_raw | pugi::format_no_declaration);
    return content.str();
}

} // namespace

Markup lookThrough(const std::string& markup, const std::function<bool(const std::string& source)>& haveImage) {
    pugi::xml_document document;
    const std::string whole = "<body>" + markup + "</body>";
    const pugi::xml_parse_result parsed = document.load_buffer(
        whole.data(), whole.size(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
    if (!parsed)
        throw std::runtime_error(std::string{"The layout of the report is broken: "} + parsed.description() + ".");
    const pugi::xml_node root = document.child("body");
    replaceMissingImages(root, haveImage);
    Markup result{contentOf(root), textOf(root), {}};
    for (const pugi::xpath_node& heading : root.select_nodes(".//h2")) {
        std::string text = textOf(heading.node());
        text.pop_back(); // the end of its line
        result.groups.push_back(std::move(text));
    }
    return result;
}

} // namespace opd::adapters::reporting
