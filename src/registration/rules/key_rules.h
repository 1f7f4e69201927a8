#pragma once

#include "registration/fields/fields.h"
#include "ui/window.h"

namespace opd::registration {

/// What typed characters and Enter do on the form: the window's own preview, the filters of the name boxes, and the
/// roads from one tab to the next.
class KeyRules {
  public:
    /// With `quick`, what has a known number of places goes on by itself when the last one is typed.
    KeyRules(ui::Window& window, Fields& fields, bool quick);
    KeyRules(const KeyRules&) = delete;
    KeyRules& operator=(const KeyRules&) = delete;

  private:
    void preview(ui::KeyPress& press);
    void bindNameFilters();
    void bindPreviewRests();
    void bindRoadsBetweenTabs();
    void bindQuickEntry();

    ui::Window& m_window;
    Fields& m_fields;
};

} // namespace opd::registration
