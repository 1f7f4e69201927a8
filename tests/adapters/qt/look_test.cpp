#include "adapters/qt/basics/wrapped_label.h"
#include "adapters/qt/look/colours.h"
#include "adapters/qt/message_box.h"
#include "adapters/qt/style.h"
#include "tests/adapters/qt/desk.h"
#include "tests/adapters/qt/every_window.h"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <cmath>
#include <map>

namespace opd::qt {
namespace {

/// A desktop environment whose every colour is the wrong one for a form with light fields.
struct DarkDesktop {
    QPalette before = QApplication::palette();

    DarkDesktop() {
        QPalette dark;
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            dark.setColor(static_cast<QPalette::ColorRole>(role), QColor(0x1b, 0x1e, 0x20));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                                QPalette::PlaceholderText, QPalette::HighlightedText})
            dark.setColor(role, QColor(0xfc, 0xfc, 0xfc));
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(before); }
};

double luminance(QRgb colour) {
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// How far the strongest stroke in a part of a picture stands out from what it lies on.
double strokeContrast(const QImage& picture, const QRect& part) {
    std::map<QRgb, int> counts;
    const QRect within = part.intersected(picture.rect());
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            ++counts[picture.pixel(x, y)];
    if (counts.empty())
        return 0;
    const auto ground = std::max_element(counts.begin(), counts.end(),
                                         [](const auto& a, const auto& b) { return a.second < b.second; });
    double strongest = 1;
    for (const auto& [colour, count] : counts)
        strongest = std::max(strongest, contrast(colour, ground->first));
    return strongest;
}

/// How far the weakest side of a frame stands out from what is around it.
double frameContrast(const QImage& picture, const QRect& frame) {
    double weakest = 21;
    const auto side = [&](QPoint edge, QPoint outward) {
        const QRgb around = picture.pixel(edge + 2 * outward);
        weakest = std::min(
            weakest, std::max(contrast(picture.pixel(edge), around), contrast(picture.pixel(edge - outward), around)));
    };
    side({frame.center().x(), frame.top()}, {0, -1});
    side({frame.center().x(), frame.bottom()}, {0, 1});
    side({frame.left(), frame.center().y()}, {-1, 0});
    side({frame.right(), frame.center().y()}, {1, 0});
    return weakest;
}

bool hasArrow(const QWidget& widget) {
    return widget.inherits("QComboBox") || widget.inherits("QAbstractSpinBox");
}

bool isField(const QWidget& widget) {
    return widget.inherits("QLineEdit") || widget.inherits("QPlainTextEdit") || hasArrow(widget);
}

bool isToggle(const QWidget& widget) {
    return widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
}

bool isPushButton(const QWidget& widget) {
    return widget.inherits("QPushButton");
}

/// Where the text of a widget stands; nothing when it has none.
QRect textPart(const QWidget& widget) {
    const QRect whole = widget.rect();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text().isEmpty() || label->property("titleShadow").isValid() ? QRect() : whole;
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        return box->title().isEmpty() ? QRect()
                                      : QRect(12, 0, QFontMetrics(box->font()).horizontalAdvance(box->title()), 16);
    if (isToggle(widget))
        return whole.adjusted(24, 0, 0, 0);
    if (isField(widget) || isPushButton(widget))
        return whole.adjusted(4, 4, hasArrow(widget) ? -24 : -4, -4);
    return widget.inherits("QHeaderView") ? whole : QRect();
}

/// A widget of the form that lies whole before the clerk, away from the edge of the window.
bool canBeMeasured(const QWidget& widget, const QWidget& window) {
    const bool isNamed = !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_");
    const QRect place(widget.mapTo(&window, QPoint()), widget.size());
    return isNamed && widget.visibleRegion().boundingRect() == widget.rect() &&
           window.rect().contains(place.adjusted(-2, -2, 2, 2)) &&
           widget.parent()->objectName() != QStringLiteral("qt_scrollarea_viewport"); // an editor lies over a cell
}

/// What in a window is too faint, a line each.
std::string faintParts(QWidget& window, double leastForText) {
    const QImage picture = window.grab().toImage();
    std::string faint;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!canBeMeasured(*widget, window))
            continue;
        const auto expect = [&](const char* what, double found, double least) {
            if (found < least)
                faint += fromQt(widget->objectName()) + " " + what + " " + std::to_string(found) + "\n";
        };
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (const QRect text = textPart(*widget); !text.isEmpty())
            expect("text", strokeContrast(picture, text.translated(place.topLeft())), leastForText);
        if (isToggle(*widget))
            expect("mark", strokeContrast(picture, {place.left(), place.top(), 18, place.height()}), 3);
        else if (isField(*widget) || isPushButton(*widget) || widget->inherits("QTableView"))
            expect("frame", frameContrast(picture, place), 3);
    }
    return faint;
}

void disableAll(const ui::Window& form) {
    ui::Tabs* tabs = tabsOf(form);
    const int page = tabs == nullptr ? 0 : tabs->current();
    for (ui::Control* control : form.everything())
        if (control->kind() != ui::Kind::Page && control != tabs)
            control->setEnabled(false);
    if (tabs != nullptr)
        tabs->show(page); // the focus has fled to another one
}

/// A picture of a page for looking at, where the variable OPD_PICTURES names a folder.
void keepPicture(WindowShell& shell, const std::string& where) {
    const QString folder = qEnvironmentVariable("OPD_PICTURES");
    EXPECT_TRUE(folder.isEmpty() || shell.grab().save(folder + "/" + toQt(where) + ".png"));
}

TEST(QtLook, EverythingCanBeReadUnderADarkDesktop) {
    const DarkDesktop dark;
    everyPage([](WindowShell& shell, ui::Window& form, const std::string& where) {
        fillFields(form);
        hands::settle();
        keepPicture(shell, where);
        EXPECT_EQ(faintParts(shell, 4.5), "") << where;
        disableAll(form);
        hands::settle();
        EXPECT_EQ(faintParts(shell, 3), "") << where << ", unusable";
    });
}

/// The pages of the registration form, filled and with a field refused.
std::vector<QImage> pagesOfForm(bool wasPrepared) {
    std::vector<QImage> pages;
    samples::RegistrationWindow form;
    QtDesktop desktop;
    if (wasPrepared)
        desktop.prepareForms();
    desktop.show(form);
    fillFields(form);
    form.header.txtFirstName.setRefusal("Not this one.");
    for (std::size_t page = 0; page < form.tabOPD.pages().size(); ++page) {
        form.tabOPD.show(static_cast<int>(page));
        hands::settle();
        pages.push_back(desktop.currentShell()->grab().toImage());
    }
    return pages;
}

TEST(QtLook, AFormThatWasBuiltAheadLooksLikeOneThatWasNot) {
    const DarkDesktop dark;
    const int flashes = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    const std::vector<QImage> expected = pagesOfForm(false);
    EXPECT_EQ(pagesOfForm(true), expected);
    QApplication::setCursorFlashTime(flashes);
}

/// A program whose own windows have another style than the desk's.
struct HostWithAStyle {
    HostWithAStyle() { QApplication::setStyle(QStringLiteral("windows")); }
    ~HostWithAStyle() { dressApplication(); }
};

TEST(QtLook, AFormLooksTheSameInTheProgramOfAnother) {
    const int flashes = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    const std::vector<QImage> expected = pagesOfForm(false);
    const DarkDesktop dark;
    const HostWithAStyle host;
    EXPECT_EQ(pagesOfForm(false), expected);
    QApplication::setCursorFlashTime(flashes);
}

/// How a control looks, and in what state it is.
struct Portraits {
    std::vector<std::pair<std::string, QImage>> kept;

    void add(const std::string& state, QWidget& widget) {
        hands::settle();
        const QImage picture = widget.grab().toImage();
        for (const auto& [other, known] : kept) {
            EXPECT_EQ(picture.size(), known.size()) << state << " moves what is around it";
            EXPECT_NE(picture, known) << state << " looks like " << other;
        }
        kept.emplace_back(state, picture);
    }
};

TEST(QtLook, EachStateOfAFieldAndOfAButtonLooksLikeNoOther) {
    RegistrationDesk desk;
    ui::TextBox& name = desk.form.header.txtLastName;
    auto& field = *desk.widget<QLineEdit>("txtLastName");
    Portraits fields;
    desk.form.setFocus(desk.form.header.txtFirstName);
    fields.add("usual", field);
    name.setNeeded(true);
    fields.add("needed", field);
    desk.form.setFocus(name);
    fields.add("needed and focused", field);
    name.setNeeded(false);
    fields.add("focused", field);
    name.setRefusal("Not this one.");
    fields.add("refused and focused", field);
    desk.form.setFocus(desk.form.header.txtFirstName);
    fields.add("refused", field);
    name.setRefusal("");
    name.setEnabled(false);
    fields.add("unusable", field);

    Portraits options;
    desk.form.setFocus(desk.form.header.txtFirstName);
    options.add("usual", *desk.widget<QRadioButton>("optSex_0"));
    desk.form.header.male.setNeeded(true);
    options.add("needed", *desk.widget<QRadioButton>("optSex_0"));

    for (ui::Button* button : {&desk.form.buttons.cmdSave, &desk.form.buttons.cmdCancel}) {
        auto& widget = *desk.widget<QPushButton>(button->name().c_str());
        Portraits buttons;
        desk.form.setFocus(desk.form.header.txtFirstName);
        buttons.add("usual", widget);
        widget.setDown(true);
        buttons.add("pressed", widget);
        widget.setDown(false);
        desk.form.setFocus(*button);
        buttons.add("focused", widget);
        button->setEnabled(false);
        buttons.add("unusable", widget);
    }
}

TEST(QtLook, AMessageCanBeReadUnderADarkDesktop) {
    const DarkDesktop dark;
    QMessageBox box;
    fill(box, {.text = "Open the visit?", .buttons = ui::Buttons::YesNoCancel});
    box.show();
    hands::settle();
    const QImage picture = box.grab().toImage();
    const auto textOf = [&](const QWidget& part) {
        return strokeContrast(picture, QRect(part.mapTo(&box, QPoint()), part.size()).adjusted(4, 4, -4, -4));
    };
    EXPECT_GE(textOf(*box.findChild<QLabel*>("qt_msgbox_label")), 4.5);
    for (const QAbstractButton* button : box.buttons())
        EXPECT_GE(textOf(*button), 4.5) << fromQt(button->text());
}

/// How two pictures of a window differ.
struct Difference {
    int strong = 0;         ///< pixels of a part that changed by 3:1 or more
    bool elsewhere = false; ///< something changed outside of that part, of another one and of the status line

    Difference(const QImage& before, const QImage& after, const QRect& part, const QRegion& known) {
        for (int y = 0; y < before.height(); ++y) {
            const auto* was = reinterpret_cast<const QRgb*>(before.constScanLine(y));
            const auto* is = reinterpret_cast<const QRgb*>(after.constScanLine(y));
            if (std::equal(was, was + before.width(), is))
                continue;
            for (int x = 0; x < before.width(); ++x)
                if (was[x] != is[x]) {
                    strong += part.contains(x, y) && contrast(was[x], is[x]) >= 3 ? 1 : 0;
                    elsewhere |= !known.contains({x, y});
                }
        }
    }
};

bool hasAccent(const QImage& picture, const QRect& part) {
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            if (picture.pixel(x, y) == colours::accent.rgb())
                return true;
    return false;
}

struct FocusMarks {
    WindowShell& shell;
    ui::Window& form;
    const ui::Control* last = nullptr;
    QImage before{};

    /// A control and what belongs to it, in the window.
    QRect placeOf(const ui::Control& control) const {
        const QWidget* widget = shell.viewOf(control)->widget();
        return {widget->mapTo(&shell, QPoint()), widget->size()};
    }

    /// Moves the focus to a control and says what is wrong with its mark.
    std::string markOf(ui::Control& control) {
        form.setFocus(control);
        hands::settle();
        const QImage after = shell.grab().toImage();
        std::string fault;
        if (last != nullptr && form.focus() == &control) {
            const Difference difference(before, after, placeOf(control),
                                        QRegion(placeOf(control)) + placeOf(*last) + statusPlace());
            if (difference.strong < 60)
                fault += control.name() + " is hardly marked: " + std::to_string(difference.strong) + "\n";
            if (control.kind() == ui::Kind::Grid && hasAccent(before, placeOf(control)))
                fault += control.name() + " is marked before the focus is there\n";
            if (difference.elsewhere)
                fault += control.name() + ": something else changed too\n";
        }
        last = form.focus();
        before = after;
        return fault;
    }

    QRect statusPlace() const {
        for (const QLabel* label : shell.findChildren<QLabel*>())
            if (label->property("decoration") == QStringLiteral("statusLine"))
                return {label->mapTo(&shell, QPoint()), label->size()};
        return {};
    }
};

bool isOnPage(const ui::Control& control) {
    const ui::Control* container = control.container();
    while (container != nullptr && container->kind() != ui::Kind::Page)
        container = container->container();
    return container != nullptr;
}

std::string marksOn(WindowShell& shell, ui::Window& form, bool onPageOnly) {
    FocusMarks marks{shell, form};
    std::string faults;
    for (ui::Control* control : form.everything())
        if (control->canTakeFocus() && control->isShown() && (!onPageOnly || isOnPage(*control)))
            faults += marks.markOf(*control);
    return faults;
}

TEST(QtLook, TheFocusIsMarkedOnEveryControlAndNowhereElse) {
    const DarkDesktop dark;
    everyPage([](WindowShell& shell, ui::Window& form, const std::string& where) {
        shell.resize(1300, 900); // nothing scrolls
        fillLists(form);
        hands::settle();
        const bool onPageOnly = tabsOf(form) != nullptr && tabsOf(form)->current() > 0;
        EXPECT_EQ(marksOn(shell, form, onPageOnly), "") << where;
        for (ui::Control* control : form.everything())
            control->setRefusal("Not this one.");
        EXPECT_EQ(marksOn(shell, form, onPageOnly), "") << where << ", refused";
    });
}

TEST(QtLook, ALongTextIsMeasuredAnewWhenItOrItsFontOrItsMarginChanges) {
    WrappedLabel label;
    QLabel toolkits; // which measures always
    const auto expectTheSameHeights = [&](const std::string& what) {
        for (int asked = 0; asked < 2; ++asked)
            for (const int width : {80, 300})
                EXPECT_EQ(label.heightForWidth(width), toolkits.heightForWidth(width)) << what;
    };
    const auto changeBoth = [&](const std::string& what, const std::function<void(QLabel&)>& change) {
        change(label);
        change(toolkits);
        expectTheSameHeights(what);
    };
    changeBoth("wrapped", [](QLabel& each) {
        each.setWordWrap(true);
        each.setText(QStringLiteral("The patients whose names begin with what was typed, the nearest first."));
    });
    changeBoth("longer", [](QLabel& each) { each.setText(each.text() + each.text()); });
    changeBoth("larger", [](QLabel& each) { each.setFont(QFont(each.font().family(), 20)); });
    changeBoth("with a margin", [](QLabel& each) { each.setContentsMargins(0, 30, 0, 30); });
}

} // namespace
} // namespace opd::qt
