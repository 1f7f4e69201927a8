#pragma once

#include "ports/report/output.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace opd::ui {

class Window;

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// The answers that the buttons of a box give, in the order in which they stand.
std::vector<Answer> answersOf(Buttons buttons);

/// What closing a box by other means than its buttons answers.
Answer escapeAnswer(Buttons buttons);

/// A message that the clerk must answer before anything goes on.
struct Message {
    std::string text = {};
    std::string caption = "OPD Registration"; ///< the title of the box; the default is the module's own
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    std::optional<Answer> defaultAnswer = std::nullopt; ///< what Enter answers; the first button when not set
    std::string detail = {}; ///< stands below the text: what the question is about, a line each
};

/// A question for the place and name of a file to write.
struct FileQuestion {
    std::string caption;
    std::string suggestedName = {}; ///< without a folder
    std::string kind = {};          ///< what the dialog lists, such as "PDF files (*.pdf)"
};

/// The screen, keyboard, loudspeaker and printers of the workstation, or what stands in for them.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Loads the window if that is still to be done, shows it and returns when it is unloaded. The clerk reaches no
    /// other window of the module meanwhile.
    virtual void showModal(Window& window) = 0;

    /// Loads the window if that is still to be done, shows it and returns at once.
    virtual void show(Window& window) = 0;

    /// Returns when no window is shown any more.
    virtual void waitForWindows() = 0;

    /// Shows the message over the current window and returns the clerk's answer. Closing the box by other means answers
    /// Cancel where there is such a button, No with Yes and No, and OK otherwise.
    virtual Answer ask(const Message& message) = 0;

    /// The file that the clerk names, agreeing that one of that name is replaced; nothing when the clerk gives up.
    virtual std::optional<std::filesystem::path> askFile(const FileQuestion& question);

    /// Where documents are printed and written. A desktop that lays nothing out has neither printer nor PDF files.
    virtual report::Output& output();

    virtual void beep() = 0;

    /// Shows the busy or the normal pointer.
    virtual void setBusy(bool busy) = 0;

    /// True while the busy pointer shows.
    virtual bool isBusy() const = 0;

    /// While a statement waits, over and over: shows the busy pointer and draws what is to be drawn, but takes no input
    /// and lets no timer fire. One that may be given up is offered to be stopped when it has lasted `offeredAfter`;
    /// false when the clerk does so. A desktop without a screen has nothing to draw and stops nothing.
    virtual bool showWaiting(std::chrono::milliseconds /*lasted*/, bool /*mayBeGivenUp*/) { return true; }
    static constexpr std::chrono::milliseconds offeredAfter = std::chrono::seconds{5};

    /// The statement is done: the pointer is what it was.
    virtual void endWaiting() {}

    /// The desktop on which components show their windows to the calling thread, or null. It is set by whoever makes it
    /// and ends it.
    static Desktop* ofThread();
    static void setOfThread(Desktop* desktop);

    /// The user has closed the search. What a script has left to do is its failure where that is the end of the work.
    virtual void workEnded() {}

    /// Why the desktop gave up (a script that failed), when it has; every window is closed then.
    virtual std::optional<std::string> failure() const { return std::nullopt; }
};

/// Shows the busy pointer until the end of its scope, and then what showed before.
class BusyPointer {
  public:
    explicit BusyPointer(Desktop& desktop) : m_desktop(desktop), m_before(desktop.isBusy()) { m_desktop.setBusy(true); }
    ~BusyPointer() { m_desktop.setBusy(m_before); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    Desktop& m_desktop;
    bool m_before;
};

} // namespace opd::ui
