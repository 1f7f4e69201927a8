#include "adapters/qt/style.h"

#include "adapters/qt/look/colours.h"
#include "adapters/qt/look/desk_style.h"

#include <QApplication>
#include <QEvent>
#include <QToolTip>

#include <iterator>
#include <memory>

namespace opd::qt {

namespace {

/// A colour for what can be used and one for what cannot.
struct Shade {
    QPalette::ColorRole role;
    const QColor& usable;
    const QColor& unusable;
};

const Shade shades[] = {
    {QPalette::Window, colours::window, colours::window},
    {QPalette::WindowText, colours::text, colours::unusableText},
    {QPalette::Base, colours::paper, colours::paperShowing},
    {QPalette::AlternateBase, colours::otherRow, colours::otherRow},
    {QPalette::Text, colours::text, colours::unusableText},
    {QPalette::PlaceholderText, colours::text, // what a box holds that is no entry of its list
     colours::unusableText},
    {QPalette::Button, colours::button, colours::buttonUnusable},
    {QPalette::ButtonText, colours::text, colours::unusableText},
    {QPalette::BrightText, colours::paper, colours::paper},
    {QPalette::Light, colours::paper, colours::paper},
    {QPalette::Midlight, colours::heading, colours::heading},
    {QPalette::Mid, colours::line, colours::line},
    {QPalette::Dark, colours::border, colours::border},
    {QPalette::Shadow, colours::quietText, colours::quietText},
    {QPalette::Highlight, colours::accent, colours::border},
    {QPalette::HighlightedText, colours::paper, colours::paper},
    {QPalette::Link, colours::accent, colours::unusableText},
    {QPalette::LinkVisited, colours::title, colours::unusableText},
    {QPalette::ToolTipBase, colours::paper, colours::paper},
    {QPalette::ToolTipText, colours::text, colours::text},
};
static_assert(std::size(shades) == QPalette::NColorRoles - 1, "every role but that of no role has its colour");

QPalette makePalette() {
    QPalette palette;
    for (const Shade& shade : shades) {
        palette.setColor(QPalette::Active, shade.role, shade.usable);
        palette.setColor(QPalette::Inactive, shade.role, shade.usable);
        palette.setColor(QPalette::Disabled, shade.role, shade.unusable);
    }
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colours::remembered);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colours::text);
    return palette;
}

const QPalette& deskPalette() {
    static const QPalette palette = makePalette();
    return palette;
}

/// False in a program of another, whose own windows keep the style that it chose.
bool isOwnApplication() {
    return qobject_cast<const DeskStyle*>(QApplication::style()) != nullptr;
}

/// Gives the desk's style to its windows in such a program, and to whatever comes into them later: a list that unfolds,
/// a menu. Never taken down, as a widget may ask for its style to the end.
class GuestDress final : public QObject {
  public:
    static GuestDress& ofProcess() {
        static GuestDress& dress = *std::make_unique<GuestDress>().release();
        return dress;
    }

    GuestDress() { qApp->installEventFilter(this); }

    void begin(QWidget& window) {
        window.setStyle(&m_style);
        for (QWidget* part : window.findChildren<QWidget*>())
            part->setStyle(&m_style);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::Polish || !object->isWidgetType())
            return false;
        auto& part = static_cast<QWidget&>(*object);
        if (part.parentWidget() != nullptr && part.parentWidget()->style() == &m_style && part.style() != &m_style)
            part.setStyle(&m_style);
        return false;
    }

  private:
    DeskStyle m_style;
};

} // namespace

void dressApplication() {
    QApplication::setStyle(std::make_unique<DeskStyle>().release()); // the application owns it
    QApplication::setPalette(deskPalette());
    QToolTip::setPalette(deskPalette());
}

void dress(QWidget& window) {
    window.setPalette(deskPalette());
    if (!isOwnApplication())
        GuestDress::ofProcess().begin(window);
    window.ensurePolished(); // with all that is in it
}

} // namespace opd::qt
