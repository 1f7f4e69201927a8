#pragma once

#include "base/clock/date_text.h"
#include "ports/image/image.h"
#include "ui/control.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace opd::ui {

/// A box for one text. Its content is UTF-8.
class TextBox : public Control {
  public:
    /// `maxLength` counts characters that can be typed, 0 for no limit. A text set by program is never cut.
    TextBox(Container& container, Name name, Literal caption = {}, int maxLength = 0)
        : Control(Kind::TextBox, &container, name, caption), m_maxLength(maxLength) {}

    const std::string& text() const { return m_text; }
    void setText(const std::string& text);
    std::string shownText() const override { return m_text; }

    int maxLength() const { return m_maxLength; }

    /// A text of several lines as it is kept and shown to scripts: every line ends in "\r\n", as in the other programs
    /// of the hospital.
    static std::string withLineEnds(const std::string& text);

    /// Makes it show what another control or the system decides: nobody types there, and Tab passes it by.
    void showOnly();

    bool readOnly = false;  ///< shows what another control decides; still takes the focus for reading and copying
    bool multiLine = false; ///< shown over several lines; Enter moves on all the same

  protected:
    TextBox(Kind kind, Container& container, Name name, Literal caption, int maxLength)
        : Control(kind, &container, name, caption), m_maxLength(maxLength) {}

  private:
    std::string m_text;
    int m_maxLength;
};

/// A text typed into a mask: a digit or a blank in the place of each "#", everything else as it stands. To begin with
/// that is a date in "##/##/####", whose text is always ten characters; empty it is "  /  /    ". Without a mask the
/// box holds any text.
class MaskedBox final : public Control {
  public:
    static constexpr std::string_view dateMask = "##/##/####";

    MaskedBox(Container& container, Name name, Literal caption = {})
        : Control(Kind::MaskedBox, &container, name, caption), m_text(blankDateText) {}

    const std::string& mask() const { return m_mask; }

    /// Characters that can be typed, 0 for no limit. A text set by program is never cut.
    int maxLength() const { return m_maxLength; }

    /// Puts another mask in, or none when it is empty, and empties the box. That is no change of its content by
    /// anybody: `onChange` is not raised.
    void setMask(std::string_view mask, int maxLength);

    const std::string& text() const { return m_text; }

    /// Puts a text into the mask. An empty text, or one that does not fit the mask, blanks the box.
    void setText(const std::string& text);
    void clear() { setText({}); }

    /// The text of the empty box.
    std::string blankText() const;
    bool isBlank() const { return m_text == blankText(); }
    std::string shownText() const override { return m_text; }

    bool offersCalendar = false; ///< a desktop with a screen lets the clerk pick the date, by F4, Alt+Down or mouse
    DateTime calendarDay;        ///< where the calendar opens while the box holds no date

    /// A text as the box writes it: a date in another spelling ("3 /7 /1980", "1980-03-07") gets the one of the mask,
    /// every other text stays as it is.
    std::string spelled(const std::string& text) const;

  private:
    std::string m_mask{dateMask};
    int m_maxLength = static_cast<int>(dateMask.size());
    std::string m_text;
};

/// A date or a time of day that always has a value. A date that is typed is left only when it is one.
class DatePicker final : public Control {
  public:
    enum class Format { Date, Time };

    /// The mark of a draft that is no date.
    static constexpr const char* noDate = "This is no date. Eight digits: month, day and year.";

    DatePicker(Container& container, Name name, Literal caption, Format format)
        : Control(Kind::DatePicker, &container, name, caption), m_format(format) {}

    Format format() const { return m_format; }
    const DateTime& value() const { return m_value; }
    void setValue(const DateTime& value);

    /// "MM/dd/yyyy" or "hh:mm AM", by its format.
    std::string text() const;
    std::string shownText() const override { return m_draft.empty() ? text() : m_draft; }

    /// A text that is a date as a box for dates shows it; every other one as it is.
    static std::string spelled(const std::string& text);

    /// What is typed into a date, a blank in each empty place: its value as soon as it is a whole date, until then a
    /// draft that is shown and counts for nothing.
    void write(const std::string& text);

    /// Makes the value of a draft in another spelling, such as "3/7/2025". False for one that is no date: it is marked.
    bool settle();

    /// Shows the value again.
    void giveUpDraft();

  private:
    void take(const DateTime& day);

    Format m_format;
    DateTime m_value{1980, 1, 1, 0, 0, 0};
    std::string m_draft; ///< empty while the value is shown
};

/// A drop-down list with a text. A text that is no entry can be shown but not typed.
class ComboBox final : public Control {
  public:
    ComboBox(Container& container, Name name, Literal caption = {}, std::vector<std::string> items = {})
        : Control(Kind::ComboBox, &container, name, caption), m_items(std::move(items)) {}

    const std::vector<std::string>& items() const { return m_items; }
    void add(const std::string& item);

    const std::string& text() const { return m_text; }

    /// Shows a text and makes the entry that equals it, if there is one, the current one.
    void setText(const std::string& text);
    std::string shownText() const override { return m_text; }

    /// The current entry, -1 for none.
    int index() const { return m_index; }
    void select(int index);

    /// The clerk picked an entry: selects it and raises `onClick`.
    void picked(int index);

  private:
    std::vector<std::string> m_items;
    std::string m_text;
    int m_index = -1;
};

/// One of several choices; the options of one container exclude each other.
class OptionButton final : public Control {
  public:
    OptionButton(Container& container, Name name, Literal caption)
        : Control(Kind::OptionButton, &container, name, caption) {}

    bool selected() const { return m_selected; }
    void setSelected(bool selected);
    void clicked() override;
    bool handleKey(char32_t code) override;

    /// All options of its container in tab order, itself included.
    std::vector<OptionButton*> group() const;

    /// The first of them.
    OptionButton& firstOfGroup() const;

  private:
    bool m_selected = false;
};

class CheckBox final : public Control {
  public:
    CheckBox(Container& container, Name name, Literal caption) : Control(Kind::CheckBox, &container, name, caption) {}

    /// 0 cleared, 1 checked, 2 greyed.
    int value() const { return m_value; }
    bool checked() const { return m_value == 1; }
    void setValue(int value);
    void setChecked(bool checked) { setValue(checked ? 1 : 0); }
    void clicked() override;
    bool handleKey(char32_t code) override;

  private:
    int m_value = 0;
};

class Button final : public Control {
  public:
    Button(Container& container, Name name, Literal caption) : Control(Kind::Button, &container, name, caption) {}

    bool handleKey(char32_t code) override;
};

class Label final : public Control {
  public:
    Label(Container& container, Name name, Literal caption) : Control(Kind::Label, &container, name, caption) {}
};

/// A group of controls with a caption around it.
class Frame final : public Container {
  public:
    Frame(Container& container, Name name, Literal caption) : Container(Kind::Frame, &container, name, caption) {}
};

class Tabs;

/// One page of tabs; its caption is the tab's.
class Page final : public Container {
  public:
    Page(Tabs& tabs, Name name, Literal caption);

    bool isCurrent() const;
    int index() const { return m_index; }

  private:
    Tabs& m_tabs;
    int m_index;
};

/// Pages of which one is shown.
class Tabs final : public Container {
  public:
    Tabs(Container& container, Name name) : Container(Kind::Tabs, &container, name, {}) {}

    const std::vector<Page*>& pages() const { return m_pages; }
    int current() const { return m_current; }

    /// Shows a page and raises `onChange` when it was another one. A page that is not usable is not shown.
    void show(int index);

    /// The caption of the current page.
    std::string shownText() const override;

  private:
    friend class Page;
    std::vector<Page*> m_pages;
    int m_current = 0;
};

/// A drawn image of the form, one of several that take turns, or an image that the program puts in.
class Picture final : public Control {
  public:
    Picture(Container& container, Name name) : Control(Kind::Picture, &container, name, {}) {}

    /// Which of its images it shows, counted from 0. What the images are is the view's affair.
    int frame() const { return m_frame; }
    void setFrame(int frame);

    /// The image put in by program, shown whole and without distortion; null while there is none.
    const SharedImage& image() const { return m_image; }
    void setImage(SharedImage image);

    /// "WIDTHxHEIGHT" of the image, or an empty text.
    std::string shownText() const override;

  private:
    int m_frame = 0;
    SharedImage m_image;
};

/// Raises `onTick` once every interval while it is running.
class Timer final : public Control {
  public:
    Timer(Container& container, Name name, int intervalMilliseconds)
        : Control(Kind::Timer, &container, name, {}), m_interval(intervalMilliseconds) {}

    int interval() const { return m_interval; }
    bool running() const { return m_running; }

    /// Starts the interval, anew when it is running already.
    void start();
    void stop();

    Event<> onTick;

  private:
    int m_interval;
    bool m_running = false;
};

/// The controls that share a name and differ in their index, which need not be consecutive.
template <class T> class ControlArray {
  public:
    /// For indexes from 0 to below `room`.
    ControlArray(Literal name, int room)
        : m_name(name), m_room(room), m_controls(std::make_unique<std::optional<T>[]>(static_cast<std::size_t>(room))) {
    }

    /// Makes the control `name(index)` with the rest of its constructor's arguments.
    template <class... Arguments> T& add(Container& container, int index, Arguments&&... arguments) {
        return at(index).emplace(container, Name{m_name, index}, std::forward<Arguments>(arguments)...);
    }

    /// The control of an index that was added; std::out_of_range for any other.
    T& operator()(int index) const {
        std::optional<T>& control = at(index);
        if (!control)
            throw std::out_of_range("The array has no such control.");
        return *control;
    }

    /// Calls `visit(index, control)` for each control in the order of the indexes.
    template <class Visit> void forEach(Visit&& visit) const {
        for (int index = 0; index < m_room; ++index)
            if (std::optional<T>& control = at(index))
                visit(index, *control);
    }

  private:
    std::optional<T>& at(int index) const {
        if (index < 0 || index >= m_room)
            throw std::out_of_range("The array has no room for such a control.");
        return m_controls[static_cast<std::size_t>(index)];
    }

    Literal m_name;
    int m_room;
    std::unique_ptr<std::optional<T>[]> m_controls;
};

} // namespace opd::ui
