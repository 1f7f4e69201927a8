#include "hospital.h"

#include "adapters/sqlite/create_database.h"
#include "adapters/sqlite/provider.h"
#include "base/os/system_clock.h"

#include <unistd.h>

namespace opd::bench {

namespace {

const ado::Providers& providers() {
    static const os::SystemClock clock;
    static ado::Providers embedded;
    static const bool added = [] {
        embedded.add("sqlite", adapters::sqlite::makeSqliteProvider(clock));
        return true;
    }();
    (void)added;
    return embedded;
}

struct SilentView final : ui::WindowView {
    void changed(ui::Control&, ui::Aspect) override {}
    void focusMoved(ui::Control*) override {}
    void closed() override {}
};

int made = 0; // tells the folders of one process apart

} // namespace

Hospital::Hospital(int patients)
    : m_folder(std::filesystem::temp_directory_path() /
               ("opd-bench-" + std::to_string(getpid()) + "-" + std::to_string(++made))),
      m_connection(std::make_unique<ado::Connection>(providers())) {
    adapters::sqlite::DatabaseOptions options;
    options.patients = patients;
    adapters::sqlite::createDatabase(m_folder, options, {});
    m_connection->Open("Data Source=" + m_folder.string());
}

Hospital::~Hospital() {
    m_connection->Close();
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

} // namespace opd::bench
