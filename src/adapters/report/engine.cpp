#include "adapters/report/engine.h"

#include "adapters/report/barcode.h"
#include "adapters/report/data_reader.h"
#include "adapters/report/markup.h"
#include "adapters/report/report_file.h"
#include "adapters/report/template_data.h"

#include <stdexcept>

namespace opd::adapters {

namespace {

using namespace reporting;

class FileReport final : public report::Report {
  public:
    FileReport(ReportFile file, const ReportSurroundings& surroundings)
        : m_file(std::move(file)), m_surroundings(surroundings) {
        for (const Query& query : m_file.queries)
            tables.push_back({query.name});
        for (const std::string& name : m_file.parameters)
            parameterFields.push_back({name});
    }

    report::Document document() const override {
        const auto data =
            templateData(m_file, *this, readData(m_file, *this, m_surroundings.onConnect), m_surroundings.clock.now());
        report::Document document;
        const auto laidOut = [&](const std::string& layout) {
            return lookThrough(rendered(layout, data),
                               [&](const std::string& source) { return addImage(document.images, source); });
        };
        Markup body = laidOut(m_file.body);
        document.title = m_file.title;
        document.paper = m_file.paper;
        document.margins = m_file.margins;
        document.shrinksToFit = m_file.shrinksToFit;
        document.style = m_file.style;
        document.body = std::move(body.content);
        document.text = std::move(body.text);
        document.groups = std::move(body.groups);
        document.head = laidOut(m_file.head).content;
        document.foot = laidOut(m_file.foot).content;
        return document;
    }

  private:
    /// Finds the image of a source such as "code128:00000012" or "photograph:00000012". False when there is none.
    bool addImage(std::map<std::string, SharedImage>& images, const std::string& source) const {
        if (images.contains(source))
            return true;
        const std::size_t colon = source.find(':');
        const std::string kind = source.substr(0, colon);
        const std::string value = colon == std::string::npos ? std::string{} : source.substr(colon + 1);
        SharedImage image;
        if (kind == "code128")
            image = barcode(value);
        else if (kind == "photograph" && m_surroundings.photograph)
            image = m_surroundings.photograph(value);
        if (image)
            images[source] = image;
        return image != nullptr;
    }

    /// Null for a text that the code cannot hold: the rest of the report is worth having without it.
    static SharedImage barcode(const std::string& value) {
        try {
            return std::make_shared<const Image>(code128(value));
        } catch (const std::runtime_error&) {
            return nullptr;
        }
    }

    ReportFile m_file;
    const ReportSurroundings& m_surroundings;
};

} // namespace

std::unique_ptr<report::Report> ReportEngine::open(const std::filesystem::path& file) const {
    return std::make_unique<FileReport>(readReportFile(file), m_surroundings);
}

} // namespace opd::adapters
