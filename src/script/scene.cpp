#include "script/commands.h"

namespace opd::script {

ui::Window& Scene::window() const {
    ui::Window* const window = driver.currentWindow();
    if (window == nullptr)
        throw Mismatch("expected a window, but none is shown");
    return *window;
}

ui::Control& Scene::control(const std::string& name) const {
    ui::Control* const control = window().find(name);
    if (control == nullptr)
        throw Mismatch("expected a control " + name + ", but " + window().name() + " has none");
    return *control;
}

void Scene::press(const ui::KeyStroke& stroke) const {
    ++keystrokes.count;
    driver.press(stroke);
}

} // namespace opd::script
