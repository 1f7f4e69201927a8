#include "adapters/report/engine_module.h"
#include "component/composition.h"
#include "reports/photograph.h"

namespace opd::composition {

namespace {

/// Stands for the engine of the report files, whose library it opens for the first of them.
class EngineOfSession final : public report::Engine {
  public:
    explicit EngineOfSession(const settings::Store& settings) : m_settings(settings) {}

    std::unique_ptr<report::Report> open(const std::filesystem::path& file) const override {
        if (m_real == nullptr)
            m_real = adapters::openReportEngine(moduleFolder(), surroundings());
        return m_real->open(file);
    }

  private:
    adapters::ReportSurroundings surroundings() const {
        return {
            .clock = clock(),
            .photograph =
                [this](const std::string& hospNum) {
                    const std::string location = reports::pictureLocation(reports::pictureFolder(m_settings));
                    return reports::storedPhotograph(images(), reports::photographFile(location, hospNum)).image;
                },
            .onConnect =
                [](ado::Connection& connection) {
                    traceStatements(connection);
                    drawWhileWaiting(connection);
                },
        };
    }

    const settings::Store& m_settings;
    mutable std::unique_ptr<report::Engine> m_real;
};

} // namespace

std::unique_ptr<report::Engine> makeReportEngine(const settings::Store& settings) {
    return std::make_unique<EngineOfSession>(settings);
}

} // namespace opd::composition
