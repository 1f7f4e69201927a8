#pragma once

#include "ui/grid.h"
#include "ui/window.h"

#include <vector>

namespace opd::ui {

class Desktop;

/// The controls of the card of keys.
struct KeyCardFields {
    explicit KeyCardFields(Container& form) : window(form) {}

    Container& window;
    Grid grdKeys{window, "grdKeys"};
    Button cmdClose{window, "cmdClose", "&Close"};
};

/// One page with the keys that work in a window. Esc, Enter or F1 close it.
class KeyCard final : public Window {
  public:
    explicit KeyCard(const Window& about);

    KeyCardFields& fields() { return m_fields; }

  private:
    KeyCardFields m_fields{*this};
};

/// The keys that work in a window as it stands: those that its controls answer, its own, and its access keys.
std::vector<KeyNote> keysOf(const Window& window);

/// Shows the card of a window's keys until it is closed.
void showKeyCard(Desktop& desktop, const Window& about);

} // namespace opd::ui
