#pragma once

#include "adapters/qt/control_view.h"

namespace opd::qt {

/// A picture. Where its form names a glyph for it, that is drawn, in as many variants as there are; elsewhere the place
/// stays as the form has it.
class PictureView final : public ControlView {
  public:
    PictureView(ui::Picture& picture, QWidget* widget);

    void show(ui::Aspect aspect) override;

  private:
    ui::Picture& m_picture;
};

} // namespace opd::qt
