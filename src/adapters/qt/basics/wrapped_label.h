#pragma once

#include <QLabel>
#include <QMap>

namespace opd::qt {

/// A text of several lines that remembers how high it is. A layout asks several times for each width, and the toolkit
/// lays the text out anew each time.
class WrappedLabel final : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    int heightForWidth(int width) const override;

  protected:
    bool event(QEvent* event) override;

  private:
    mutable QString m_measured; ///< the text that the heights are of
    mutable QMap<int, int> m_heights;
};

} // namespace opd::qt
