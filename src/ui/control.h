#pragma once

#include "ui/event.h"
#include "ui/keys.h"
#include "ui/wording.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ui {

class CodedField;
class Container;
class Grid;
class Window;

enum class Kind {
    TextBox,
    MaskedBox,
    DatePicker,
    ComboBox,
    OptionButton,
    CheckBox,
    Button,
    Label,
    Frame,
    Page,
    Tabs,
    Grid,
    Picture,
    ReportPane,
    Timer,
    Window
};

/// What of a control has changed, told to the view that shows it.
enum class Aspect {
    Text,        ///< text, chosen entry or value
    Caption,     ///< its caption, or the label beside it
    Enabled,     ///< its own or, for a container, that of everything in it
    Visible,     ///< likewise
    Checked,     ///< option or check box
    Items,       ///< entries of a combo box
    Table,       ///< columns or rows of a grid
    Cells,       ///< cells or number of rows of a grid whose columns stay
    CurrentCell, ///< current row or column of a grid
    CurrentPage, ///< of tabs
    Running,     ///< interval or on/off of a timer
    Image,       ///< of a picture
    Document,    ///< of a report pane
    ReportPage,  ///< its current page
    Zoom,        ///< its enlargement
    Refusal,     ///< why its content is refused
    Need,        ///< whether something must be in it yet
    Status       ///< of the window: what its status line says
};

/// What a control is called in the program: a literal, which the controls of an array share and an index tells apart.
class Name {
  public:
    template <std::size_t Size> constexpr Name(const char (&name)[Size]) : m_name(name) {}
    constexpr Name(Literal name) : m_name(name) {}
    constexpr Name(Literal array, int index) : m_name(array), m_index(index) {}

    /// "txtRemarks", "txtName(0)".
    std::string text() const;

  private:
    static constexpr int none = -1;

    Literal m_name;
    int m_index = none;
};

/// The model of one control: its state and its events, without any toolkit. Controls are members of the form that uses
/// them; each registers with its container when it is made, and the order of registration is the tab order.
///
/// State set by program tells the view and, where documented, raises the change event; it never validates.
class Control {
  public:
    Control(Kind kind, Container* container, Name name, Literal caption);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return m_kind; }

    /// The name, with the index of a control array: "txtName(0)".
    std::string name() const { return m_name.text(); }

    /// The same without making a text of it.
    const Name& declaredName() const { return m_name; }

    Container* container() const { return m_container; }
    Window& window() const;

    /// Itself where it holds other controls, or null.
    Container* asContainer();

    /// The caption of a button, box, frame or label; for a field the label beside it. "&" marks the access key.
    std::string_view caption() const { return m_caption; }
    void setCaption(std::string_view caption);

    /// The control's own state, whatever its containers are.
    bool visible() const { return m_visible; }
    bool enabled() const { return m_enabled; }
    void setVisible(bool visible);
    void setEnabled(bool enabled);

    /// Why the content of a field is refused, for the clerk to read; empty when nothing is wrong with it. It is shown
    /// until the one who found the fault takes it back, and keeps nobody from moving on.
    std::string_view refusal() const { return m_refusal; }
    void setRefusal(std::string_view refusal);

    /// True while something must be in a field before the window's work can be done. It is marked, and not refused.
    bool isNeeded() const { return m_isNeeded; }
    void setNeeded(bool isNeeded);

    /// True when the clerk can see it: it and all its containers are visible and its page is the current one.
    bool isShown() const;

    /// True when it and all its containers are enabled.
    bool isUsable() const;

    /// True when the focus may go to it: a kind that takes the focus, enabled and visible with all its containers. A
    /// control on another page counts; moving the focus there shows the page.
    bool canTakeFocus() const;

    /// True when it or one of its containers is hidden. A control on another page is not.
    bool isHidden() const;

    /// The text a clerk reads in it: content of a field, caption of a button or label.
    virtual std::string shownText() const { return std::string{caption()}; }

    /// What the control itself does with a character that passed every filter. True when that used it up.
    virtual bool handleKey(char32_t) { return false; }

    /// The control's answer to a click of the clerk: changes its own state, then raises `onClick`.
    virtual void clicked();

    Wording spokenName; ///< what a screen reader calls it, where `SpokenNames` would not find it by itself
    Wording tip;        ///< what the mouse is told, where there is more to say than the caption does

    Wording hint; ///< what the clerk can do here ("F4 lists the codes"), said while the control has the focus

    bool tabStop = true;
    bool entersWhenFull = false;       ///< a field whose last place is typed goes on as Enter does
    bool causesValidation = true;      ///< false: moving here never asks the control that is left
    const CodedField* coded = nullptr; ///< the coded field that it is a part of
    const Grid* floatsOver = nullptr;  ///< lies over the current cell of this grid while it is visible

    Event<> onClick;
    Event<> onDoubleClick;
    Event<> onChange; ///< the content has changed, by the clerk or by program
    Event<> onGotFocus;
    Event<> onLostFocus;
    Event<KeyPress&> onKeyPress;
    Event<> onArrowDown;     ///< the Down arrow, where the control itself has no use for it
    Event<> onEscape;        ///< Esc is the control's own business and presses no cancel button
    Event<bool&> onValidate; ///< asked before the focus leaves; `refuse` keeps it here

  protected:
    void tellView(Aspect aspect);
    void raiseChange();

  private:
    friend class Members;

    Kind m_kind;
    Container* m_container;
    Control* m_next = nullptr; ///< the member of the container that was registered after it
    Name m_name;
    Wording m_caption;
    Wording m_refusal;
    bool m_visible = true;
    bool m_enabled = true;
    bool m_isNeeded = false;
};

/// The direct members of a container in the order of their registration.
class Members {
  public:
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Control*;
        using difference_type = std::ptrdiff_t;
        using pointer = Control* const*;
        using reference = Control*;

        explicit Iterator(Control* at = nullptr) : m_at(at) {}
        Control* operator*() const { return m_at; }
        Iterator& operator++() {
            m_at = m_at->m_next;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

      private:
        Control* m_at;
    };

    Iterator begin() const { return Iterator(m_first); }
    Iterator end() const { return Iterator(); }

    /// Adds a control behind the others. It stays as long as they do.
    void add(Control& control);

  private:
    Control* m_first = nullptr;
    Control* m_last = nullptr;
};

/// A control that holds others: a window, a frame, a page of tabs.
class Container : public Control {
  public:
    using Control::Control;

    const Members& members() const { return m_members; }

    /// Calls `visit(control)` for everything inside, containers before their members, in tab order.
    template <class Visit> void forEach(const Visit& visit) const {
        for (Control* member : m_members) {
            visit(*member);
            if (const Container* inner = member->asContainer())
                inner->forEach(visit);
        }
    }

    /// The same as a list.
    std::vector<Control*> everything() const;

  private:
    friend class Control;
    Members m_members;
};

/// The character behind the "&" of a caption, in upper case; 0 when there is none.
char32_t accessKeyOf(std::string_view caption);

/// The caption as a clerk reads it: "&Search" is "Search", "&&" is "&".
std::string plainCaption(std::string_view caption);

} // namespace opd::ui
