#pragma once

#include "adapters/image/picture_files.h"
#include "adapters/settings/ini_store.h"
#include "ado/connection.h"
#include "ports/report/no_prints.h"
#include "session/session.h"
#include "ui/desktop.h"
#include "ui/window.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace opd::bench {

/// The moment at which the measured hospitals were made, and at which everything that is measured stands.
inline const FixedClock& clock() {
    static const FixedClock fixed{{2026, 11, 25, 10, 0, 0}};
    return fixed;
}

/// The folder of a hospital that was made to be measured, by its name, which is the number of its patients or what it
/// is for. Throws std::runtime_error when OPD_BENCH_HOSPITALS does not say where they are.
std::filesystem::path hospital(const std::string& name);

/// A copy of such a hospital in memory, removed with the object.
class Copy {
  public:
    explicit Copy(const std::string& name);
    ~Copy();
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    const std::filesystem::path& folder() const { return m_folder; }

  private:
    std::filesystem::path m_folder;
};

/// A desktop that shows a window, lets `work` use it, and closes it; message boxes are confirmed.
class BriefDesktop final : public ui::Desktop {
  public:
    std::function<void(ui::Window&)> work;

    void showModal(ui::Window& window) override;
    void show(ui::Window& window) override { showModal(window); }
    void waitForWindows() override {}
    ui::Answer ask(const ui::Message& message) override { return ui::answersOf(message.buttons).front(); }
    void beep() override {}
    void setBusy(bool) override {}
    bool isBusy() const override { return false; }
};

/// A workstation on a hospital: the session as the component makes it.
class Workplace {
  public:
    Workplace(const std::filesystem::path& folder, ui::Desktop& desktop);
    ~Workplace();
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    Session& session() { return m_session; }
    ado::Connection& connection() { return m_session.connection(); }

  private:
    struct NoReports final : report::Engine {
        std::unique_ptr<report::Report> open(const std::filesystem::path&) const override { return nullptr; }
    };
    struct NoCamera final : Camera {
        std::optional<Image> takeStill() override { return {}; }
    };

    Globals m_globals;
    settings::FixedStore m_settings;
    NoReports m_reports;
    NoCamera m_camera;
    adapters::PictureFiles m_images;
    report::NoPrints m_prints;
    Session m_session;
};

} // namespace opd::bench
