#pragma once

#include "ado/connection.h"
#include "ui/desktop.h"
#include "ui/window.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace opd::bench {

/// A demonstration hospital in a folder of its own, removed with the object.
class Hospital {
  public:
    explicit Hospital(int patients);
    ~Hospital();
    Hospital(const Hospital&) = delete;
    Hospital& operator=(const Hospital&) = delete;

    ado::Connection& connection() { return *m_connection; }

  private:
    std::filesystem::path m_folder;
    std::unique_ptr<ado::Connection> m_connection;
};

/// A desktop that shows a window, lets `work` use it, and closes it.
class BriefDesktop final : public ui::Desktop {
  public:
    std::function<void(ui::Window&)> work;

    void showModal(ui::Window& window) override;
    void show(ui::Window&) override {}
    void waitForWindows() override {}
    ui::Answer ask(const ui::Message&) override { return ui::Answer::Ok; }
    void beep() override {}
    void setBusy(bool) override {}
    bool isBusy() const override { return false; }
};

} // namespace opd::bench
