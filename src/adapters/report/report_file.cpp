#include "adapters/report/report_file.h"

#include "base/text/text.h"

#include <cstdint>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace opd::adapters::reporting {

namespace {

constexpr int widestMargin = 90;    ///< leaves room for something between two of them on A4
constexpr int smallestPaper = 15;   ///< in millimetres; nothing that can be read is smaller
constexpr int largestPaper = 420;   ///< the longer side of A3
constexpr double leastContent = 10; ///< of a paper, between its margins
constexpr std::uintmax_t largestFile = std::uintmax_t{1024} * 1024;

std::vector<std::string> words(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> found;
    for (std::string word; stream >> word;)
        found.push_back(word);
    return found;
}

/// "key = value" with both trimmed.
std::pair<std::string, std::string> assignment(const std::string& line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos)
        throw std::runtime_error("expected \"name = value\"");
    return {text::trimmed(line.substr(0, equals)), text::trimmed(line.substr(equals + 1))};
}

/// Takes the lines of a file, section by section.
class Parser {
  public:
    void take(const std::string& line) {
        if (line.starts_with("["))
            beginSection(line);
        else if (m_section)
            m_section(line);
        else if (!text::isBlank(line) && !line.starts_with("#"))
            throw std::runtime_error("expected a section such as [report]");
    }

    ReportFile result() {
        if (m_report.queries.empty() || text::isBlank(m_report.body))
            throw std::runtime_error("a report needs at least one query and a body");
        const report::Margins& margins = m_report.margins;
        if (m_report.paper.width - margins.left - margins.right < leastContent ||
            m_report.paper.height - margins.top - margins.bottom < leastContent)
            throw std::runtime_error("the margins leave nothing of the paper");
        return std::move(m_report);
    }

  private:
    using Section = std::function<void(const std::string&)>;

    void beginSection(const std::string& line) {
        const std::size_t end = line.find(']');
        const std::vector<std::string> name = words(line.substr(1, end == std::string::npos ? end : end - 1));
        const std::string kind = name.empty() ? std::string{} : name[0];
        if (kind == "report" && name.size() == 1)
            m_section = remarked([this](const std::string& text) { takeSetting(text); });
        else if (kind == "parameters" && name.size() == 1)
            m_section = remarked([this](const std::string& text) { m_report.parameters.push_back(text); });
        else if ((kind == "row" || kind == "rows") && name.size() == 2)
            beginQuery(name[1], kind == "rows");
        else if (kind == "values" && name.size() == 2)
            beginValues(name[1]);
        else if (kind == "style" || kind == "head" || kind == "body" || kind == "foot")
            beginLayout(kind);
        else
            throw std::runtime_error("there is no section " + line);
    }

    /// Sections in which blank lines and lines that begin with "#" say nothing.
    static Section remarked(Section section) {
        return [section = std::move(section)](const std::string& line) {
            const std::string content = text::trimmed(line);
            if (!content.empty() && content[0] != '#')
                section(content);
        };
    }

    void takeSetting(const std::string& line) {
        const auto [key, value] = assignment(line);
        if (key == "title") {
            m_report.title = value;
            return;
        }
        std::istringstream numbers(value);
        if (key == "margins")
            takeMargins(numbers);
        else if (key == "paper")
            takePaper(numbers);
        else if (key == "fit" && value == "shrink")
            m_report.shrinksToFit = true;
        else
            throw std::runtime_error("expected \"title = text\", \"paper = width height\", \"fit = shrink\" or "
                                     "\"margins = left top right bottom\"");
    }

    void takePaper(std::istringstream& numbers) {
        report::Paper& paper = m_report.paper;
        if (!(numbers >> paper.width >> paper.height))
            throw std::runtime_error("expected \"paper = width height\"");
        for (const double side : {paper.width, paper.height})
            if (!(side >= smallestPaper && side <= largestPaper))
                throw std::runtime_error("a paper is between " + std::to_string(smallestPaper) + " and " +
                                         std::to_string(largestPaper) + " mm wide and high");
    }

    void takeMargins(std::istringstream& numbers) {
        report::Margins& margins = m_report.margins;
        if (!(numbers >> margins.left >> margins.top >> margins.right >> margins.bottom))
            throw std::runtime_error("expected \"margins = left top right bottom\"");
        for (const double margin : {margins.left, margins.top, margins.right, margins.bottom})
            if (!(margin >= 0 && margin <= widestMargin))
                throw std::runtime_error("a margin is between 0 and " + std::to_string(widestMargin) + " mm");
    }

    void beginQuery(const std::string& name, bool manyRows) {
        m_report.queries.push_back({.name = name, .manyRows = manyRows, .forEach = {}, .statement = {}});
        m_section = remarked([this](const std::string& line) {
            Query& query = m_report.queries.back();
            constexpr std::string_view each = "for each ";
            if (line.starts_with(each))
                query.forEach = words(line.substr(each.size()));
            else
                query.statement += (query.statement.empty() ? "" : " ") + line;
        });
    }

    void beginValues(const std::string& name) {
        const std::size_t point = name.find('.');
        if (point == std::string::npos)
            throw std::runtime_error("expected [values query.column]");
        m_report.values.push_back({name.substr(0, point), name.substr(point + 1), {}});
        m_section =
            remarked([this](const std::string& line) { m_report.values.back().texts.insert(assignment(line)); });
    }

    void beginLayout(const std::string& kind) {
        std::string& target = kind == "style"  ? m_report.style
                              : kind == "head" ? m_report.head
                              : kind == "body" ? m_report.body
                                               : m_report.foot;
        m_section = [&target](const std::string& line) { target += line + "\n"; };
    }

    ReportFile m_report;
    Section m_section;
};

} // namespace

ReportFile readReportFile(const std::filesystem::path& file) {
    std::error_code unreadable;
    std::ifstream stream;
    if (std::filesystem::is_regular_file(file, unreadable)) // a pipe would be waited for
        stream.open(file);
    if (!stream.is_open())
        throw std::runtime_error("The report file " + file.string() + " cannot be read.");
    if (std::filesystem::file_size(file, unreadable) > largestFile)
        throw std::runtime_error("The report file " + file.string() + " is larger than any report can be.");
    Parser parser;
    std::size_t number = 0;
    try {
        for (std::string line; std::getline(stream, line);) {
            ++number;
            parser.take(line);
        }
        return parser.result();
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.string() + ":" + std::to_string(number) + ": " + error.what());
    }
}

} // namespace opd::adapters::reporting
