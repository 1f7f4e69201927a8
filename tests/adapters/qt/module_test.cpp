#include "script/desktop_module.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace opd::ui {
namespace {

TEST(QtModule, OpensAtRunTimeAndBringsItsOwnApplication) {
    void* const module = dlopen(DESKTOP_MODULE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto create = reinterpret_cast<CreateDesktop>(dlsym(module, createDesktopSymbol));
    const auto destroy = reinterpret_cast<DestroyDesktop>(dlsym(module, destroyDesktopSymbol));
    ASSERT_TRUE(create != nullptr && destroy != nullptr);
    for (const char* screen : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        unsetenv(screen);
    EXPECT_EQ(create(nullptr, nullptr), nullptr) << "there is no screen";
    setenv("DISPLAY", ":7654", 1);
    EXPECT_EQ(create(nullptr, nullptr), nullptr) << "the display does not answer";
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (int i = 0; i < 2; ++i) {
        Desktop* const desktop = create(nullptr, nullptr);
        ASSERT_NE(desktop, nullptr);
        {
            const BusyPointer busy(*desktop);
            EXPECT_TRUE(desktop->isBusy());
        }
        EXPECT_FALSE(desktop->isBusy());
        desktop->waitForWindows();
        destroy(desktop);
    }
    destroy(nullptr);
}

} // namespace
} // namespace opd::ui
