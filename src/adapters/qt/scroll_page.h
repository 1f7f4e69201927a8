#pragma once

#include <QScrollArea>

namespace opd::qt {

/// The page of a form whose content scrolls where it has no room. Where there is room, the rows of its fields stand
/// closer together or further apart, the same distance everywhere on the page, so that it is neither cut nor half
/// empty.
class ScrollPage final : public QScrollArea {
    Q_OBJECT

  public:
    explicit ScrollPage(QWidget* parent = nullptr);

    /// Room for the whole content.
    QSize sizeHint() const override;

    /// Room for its width and a few rows.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void spreadRows();
    int spacingFor(int room);
    void forgetSizes();
    int heightWithSpacing(int spacing);

    int m_spacing = -1;
    int m_height = 0; ///< of the content at that spacing
    int m_room = 0;   ///< for which it was chosen
};

/// Scrolls a widget, with what stands around it, into sight; nothing where it is seen already.
void scrollIntoSight(QWidget& widget);

} // namespace opd::qt
