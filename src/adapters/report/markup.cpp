#include "adapters/report/markup.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <pugixml.hpp>
#include <sstream>
#include <stdexcept>
#include <string_view>

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
    void add(std::string content) {
        constexpr std::string_view hardBlank = "\u00a0";
        for (std::size_t at = content.find(hardBlank); at != std::string::npos; at = content.find(hardBlank))
            content.replace(at, hardBlank.size(), " ");
        for (const char character : content) {
            if (std::isspace(static_cast<unsigned char>(character)) != 0) {
                m_gap = m_gap.empty() ? " " : m_gap;
                continue;
            }
            if (!m_line.empty())
                m_line += m_gap;
            m_gap.clear();
            m_line += character;
        }
    }

    void endLine() {
        if (!m_line.empty())
            m_text += m_line + "\n";
        m_line.clear();
        m_gap.clear();
    }

    std::string m_text;
    std::string m_line;
    std::string m_gap; ///< what stands before the next character, unless that is the first of its line
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

// What walks through the markup, here and in the desktop, goes down with it.
constexpr int deepest = 200;

class DepthCheck final : public pugi::xml_tree_walker {
    bool for_each(pugi::xml_node&) override { return depth() <= deepest; }
};

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
    if (DepthCheck check; !document.traverse(check))
        throw std::runtime_error("The layout of the report is broken: its parts lie too deep within each other.");
    const pugi::xml_node root = document.child("body");
    replaceMissingImages(root, haveImage);
    Markup result{contentOf(root), textOf(root), {}};
    for (const pugi::xpath_node& heading : root.select_nodes(".//h4")) {
        const std::string text = textOf(heading.node());
        result.groups.push_back(text.substr(0, text.find('\n')));
    }
    return result;
}

} // namespace opd::adapters::reporting
