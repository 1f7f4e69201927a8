#pragma once

#include "adapters/qt/views/control_view.h"

#include <QObject>

namespace opd::qt {

/// A picture: the image that the program put in, as large as its place allows and without distortion. Where its form
/// names a glyph for it, that is drawn, in as many variants as there are; elsewhere the place stays as the form has it.
class PictureView final : public QObject, public ControlView {
  public:
    PictureView(ui::Picture& picture, QWidget* widget);

    void show(ui::Aspect aspect) override;
    QString shownText() const override;
    void release() override;

    /// The place gets another size.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void showImage();

    ui::Picture& m_picture;
};

} // namespace opd::qt
