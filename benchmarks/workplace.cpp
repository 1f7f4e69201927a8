#include "workplace.h"

#include "adapters/sqlite/provider.h"
#include "codesearch/code_search.h"
#include "com/connection_object.h"
#include "data/hospital_settings.h"
#include "data/procedures/dates.h"

#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace opd::bench {

namespace {

const ado::Providers& providers() {
    static ado::Providers embedded;
    static const bool added = [] {
        embedded.add("sqlite", adapters::sqlite::makeSqliteProvider(clock()));
        return true;
    }();
    static_cast<void>(added);
    return embedded;
}

struct SilentView final : ui::WindowView {
    void changed(ui::Control&, ui::Aspect) override {}
    void focusMoved(ui::Control*) override {}
    void closed() override {}
};

com::Server& codeSearchServer() {
    static com::Server server{"CodeSearch", {}, [] { return com::Ref<com::IUnknown>{}; }};
    return server;
}

com::Object codeSearchOn(const std::shared_ptr<ado::Connection>& connection) {
    const auto component = com::Ref<com::ILateBound>::taking(new codesearch::CodeSearch(codeSearchServer()));
    com::Object object{component.get()};
    object.call("Initialize_Classes");
    const com::Ref<com::IConnectionObject> shared = com::makeConnectionObject(connection);
    object.set("Connection", com::Ref<com::IUnknown>::sharing(shared.get()));
    return object;
}

int copies = 0; // tells those of one process apart

} // namespace

std::filesystem::path hospital(const std::string& name) {
    const char* const all = std::getenv("OPD_BENCH_HOSPITALS");
    if (all == nullptr)
        throw std::runtime_error("OPD_BENCH_HOSPITALS does not say where the hospitals are: start ./bench.");
    return std::filesystem::path{all} / name;
}

Copy::Copy(const std::string& name)
    : m_folder(std::filesystem::path{"/dev/shm"} /
               ("opd-bench-" + std::to_string(getpid()) + "-" + std::to_string(++copies))) {
    std::filesystem::create_directory(m_folder);
    std::filesystem::copy_file(hospital(name) / "hospital.db", m_folder / "hospital.db");
}

Copy::~Copy() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void BriefDesktop::showModal(ui::Window& window) {
    SilentView view;
    window.load();
    window.opened(view);
    if (work)
        work(window);
    window.unload();
}

Workplace::Workplace(const std::filesystem::path& folder, ui::Desktop& desktop)
    : m_settings(folder.string()), m_session{m_globals,  desktop, clock(),
                                             m_settings, {},      {m_reports, m_camera, m_images, m_prints, folder}} {
    m_globals.gConnection = std::make_shared<ado::Connection>(providers());
    m_globals.gConnection->Open("Data Source=" + folder.string());
    m_globals.gUserID = "BENCH";
    m_globals.gCodeSearch = codeSearchOn(m_globals.gConnection);
    data::loadFeatureFlags(m_session);
    data::LoadServerDate(m_session);
    data::LoadHospitalInfo(m_session);
}

Workplace::~Workplace() {
    m_globals.gCodeSearch = {};
    m_globals.gConnection->Close();
}

} // namespace opd::bench
