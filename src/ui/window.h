#pragma once

#include "ui/controls.h"
#include "ui/grid.h"

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ui {

/// What shows a window on a desktop. It holds no rule: it forwards raw input to the window and shows what it is told.
class WindowView {
  public:
    virtual ~WindowView() = default;

    /// Something of a control (or of the window itself: caption) has changed.
    virtual void changed(Control& control, Aspect aspect) = 0;

    /// The focus is now at this control, or nowhere. A field that got it has its content selected.
    virtual void focusMoved(Control* control) = 0;

    /// The window is unloaded; the view disappears. The window does not use it any more.
    virtual void closed() = 0;
};

class Desktop;

/// A key and what it does, for the card of a window's keys.
struct KeyNote {
    std::string key; ///< of a function key with `act`: as `keyStroke` reads it
    std::string deed;

    /// What a function key of this window does, alone or with Shift, Ctrl; what works without it has none. The control
    /// that it returns, if any, is where the focus goes by the rules: the one that is left may keep it.
    std::function<Control*()> act = {};
};

/// The model of a window: its controls, who has the focus, and the rules by which keys and the focus move. Every
/// desktop forwards the clerk's input to the members under "The clerk's input", so all desktops behave alike.
///
/// The rules: before the focus leaves a control by the clerk's doing, the control's validation is asked and may keep
/// it; a target that causes no validation (Cancel, Close) is reached without. A move by program asks nobody. A window
/// that previews keys sees every typed character before the control that has the focus. A character that a grid leaves
/// over and for which it names a box (`typesInto`) moves the focus there by the same rules, passes that box's filters
/// and takes the place of its content. A failure in a handler goes to
/// `onFailure` and ends that event; a validation that fails keeps the focus.
class Window : public Container {
  public:
    explicit Window(Literal name, Literal caption = {}) : Container(Kind::Window, nullptr, name, caption) {}

    std::function<void()> onLoad;
    std::function<void()> onUnload;
    std::function<void(KeyPress&)> onKeyPress;            ///< previews every character while `keyPreview` is set
    std::function<void(Control&)> onContentChange;        ///< of any control, after its own `onChange`
    std::function<void()> onCloseRequest;                 ///< the clerk closes the frame; unloads when there is none
    std::function<void(const std::exception&)> onFailure; ///< a handler let a failure through
    std::function<std::string()> stillToDo;               ///< what the window's work lacks yet; read whenever shown
    std::function<void()> onHelp;                         ///< F1; the card of the window's keys when there is none
    std::vector<KeyNote> ownKeys;                         ///< that the card of keys cannot find by itself
    bool keyPreview = true;
    Button* cancelButton = nullptr;  ///< Esc presses it
    Button* defaultButton = nullptr; ///< Enter presses it outside other buttons

    // Life

    /// Runs `onLoad` once until the window is unloaded. A failure passes to the caller and leaves it unloaded.
    void load();
    void unload();
    bool isLoaded() const { return m_loaded; }

    /// True while a desktop shows it.
    bool isOpen() const { return m_open; }

    /// For desktops: the window is shown by `view` from now on. Gives the focus to the control that asked for it while
    /// loading, or to the first one.
    void opened(WindowView& view);

    // Focus and keys, by program

    Control* focus() const { return m_focus; }

    /// Moves the focus without asking anybody, and shows the page of the target. Before the window is shown, the last
    /// request is kept until then. A target that cannot take the focus is ignored.
    void setFocus(Control& target);

    /// Moves the focus on, as the Tab key does, when the event being handled is done. A later setFocus in the same
    /// event takes its place.
    void sendTab() { m_pendingTab = true; }

    /// What the window has to say for itself: what was found, what was stored. It stands until it is changed.
    void setStatus(const std::string& status);

    /// What the status line reads: what of the last input was left out, or else why the content of the control that has
    /// the focus is refused, or else the window's own status, or else the hint of that control (the window's own when
    /// it has none) and what is still to be done.
    std::string statusLine() const;

    /// The control of a name, or null.
    Control* find(const std::string& name) const;

    // The clerk's input, forwarded by desktops. Input that arrives while a handler of this window runs is ignored.

    /// A stroke on the keyboard, whatever it means where the focus is: the one map of keys. Returns what is left for
    /// the content of the control that has the focus: a character that passed every filter, or a key that edits or
    /// moves in it; nothing when the window had a use for the stroke, refused it, or is busy with another event.
    std::optional<KeyStroke> press(const KeyStroke& stroke, Desktop& desktop);

    /// What a stroke that `press` left over does on a desktop without widgets of its own: an arrow goes on in the cells
    /// of a grid and from day to day in a date; an arrow, Home, End or the first letter of an entry in a list.
    void step(const KeyStroke& stroke);

    // What `press` is made of

    /// A typed character. Returns the character that the control is to take, 0 for none. There is none either when a
    /// handler failed, closed the window or took the control away.
    char32_t pressKey(char32_t code);

    /// Tab, or Shift+Tab.
    void pressTab(bool backward);

    /// Alt with a character: presses or focuses the control that is shown with that access key; where several are, the
    /// next of them gets the focus and nothing is pressed. A frame's leads to its first field, also on another page.
    /// Without such a control, a digit shows the page of that number. False when there is neither.
    bool pressAccessKey(char32_t character);

    /// An arrow key in a group of options: selects the next one, or the one before. False elsewhere.
    bool pressArrow(bool backward);

    /// A letter in a group of options: selects the next one that begins with it. False elsewhere.
    bool pressOptionLetter(char32_t letter);

    /// The Down arrow on a control that raises `onArrowDown`. False elsewhere.
    bool pressArrowDown();

    /// F4: clicks the lookup button of the code that has the focus. False when there is none that is shown and usable.
    bool pressLookup();

    /// F1: shows the card of this window's keys, or what the window has in its place.
    void pressHelp(Desktop& desktop);

    /// F2 and Delete on a grid whose cells are picked: there they stand for Enter and Backspace, which `code` names.
    /// False elsewhere.
    bool pressOnCell(char32_t code);

    /// Shows the next or previous usable page, as Ctrl+Tab does, and moves the focus to its first field.
    void turnPage(bool backward);

    /// A click on a tab: shows the page and moves the focus to its first field, or to nowhere when it has none.
    void pickPage(Tabs& tabs, int index);

    /// A click on a control, by the mouse or by an assistive program, which may reach one on another page. The focus
    /// moves there first, and shows its page; when that is refused, nothing is clicked.
    bool click(Control& control);

    /// Likewise, a double click on a grid.
    void doubleClick(Grid& grid);

    /// The clerk moves the focus to a control. False when the move was refused.
    bool requestFocus(Control& target);

    /// True where Enter with Shift or Ctrl makes a line: in a text box of several lines that has the focus.
    bool breaksLines() const;

    /// A text that reaches a field in one piece: pasted, dropped, made of several keys. The focus moves there, and
    /// every character passes what a typed one passes. Line ends stay where the field has lines and are blanks
    /// elsewhere; a date is spelled as a box for dates spells it. Returns what is to be put in at the cursor. Where
    /// something was held back, the status line says so.
    std::string passed(Control& field, const std::string& text);

    /// Something of the last input found no room in the field at hand: the status line says so until the next input.
    void foundNoRoom(int maxLength);

    /// The whole content that a field shows when it was changed past keyboard and clipboard: by an assistive program, a
    /// form filler, undo. The clerk goes there with it: the focus moves, and what is new passes as in `passed`. Where
    /// the field then holds something else, or the change is refused, the view is told to show what it holds.
    void written(TextBox& box, const std::string& text);
    void written(MaskedBox& box, const std::string& text);
    void written(DatePicker& picker, const DateTime& value);
    void written(DatePicker& picker, const std::string& text);

    /// New content of a field, after every filter. Content that arrives while a handler of this window runs is taken as
    /// a part of that event: the view shows it already.
    void edited(TextBox& box, const std::string& text);
    void edited(MaskedBox& box, const std::string& text);
    void edited(DatePicker& picker, const DateTime& value);
    void edited(DatePicker& picker, const std::string& text);
    void picked(ComboBox& box, int index);
    void pickedCell(Grid& grid, int row, int column);
    void tick(Timer& timer);

    /// The clerk closes the window by its frame.
    void requestClose();

    // For controls

    void tellView(Control& control, Aspect aspect);

    /// Moves the focus on when its control has become hidden or disabled.
    void leaveUnusable();

  private:
    bool handle(const std::function<void()>& handler);
    void sayLeftOut(const std::string& what);
    void passKey(KeyPress& press);
    bool pressWithAlt(const KeyStroke& stroke);
    bool pressToMoveOn(const KeyStroke& stroke);
    bool pressFunctionKey(const KeyStroke& stroke, Desktop& desktop);
    bool pressOwnKey(const KeyStroke& stroke);
    void enterWhenFull(const Control& field, const std::string& before, const std::string& now);
    bool pressArrowKey(Key arrow);
    std::optional<KeyStroke> pressTyped(const KeyStroke& stroke);
    bool typesElsewhere(KeyPress& press);
    std::u32string filtered(const Control& field, std::u32string_view characters);
    template <class Box> std::string withFiltered(Box& box, const std::string& text);
    template <class Box> void write(Box& box, const std::string& text);
    void completeDate();
    Tabs* tabs() const;
    bool pickPageNumber(int number);
    std::vector<Control*> behindAccessKey(char32_t key) const;
    Control* firstStopIn(const Container& container) const;
    void showEmptyPage(Tabs& tabs, int index);
    bool mayLeaveFor(const Control& target);
    void giveFocus(Control* target);
    void loseFocus();
    Control* neighbour(const Control* from, bool backward) const;

    WindowView* m_view = nullptr;
    Control* m_focus = nullptr;
    std::string m_status;
    std::string m_leftOut; ///< said of the last input
    int m_life = 0;        ///< how often it was unloaded; tells an event that its window is another one by now
    bool m_loaded = false;
    bool m_open = false;
    bool m_handling = false;
    bool m_pendingTab = false;
    bool m_focusSetByProgram = false;
};

} // namespace opd::ui
