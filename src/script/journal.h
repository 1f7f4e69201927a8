#pragma once

#include "base/os/open_file.h"
#include "ui/desktop.h"
#include "ui/window.h"

#include <filesystem>
#include <map>
#include <string>

namespace opd::script {

/// Writes down what a script does to the screen: its commands, the message boxes, and after every command what has
/// changed in the window that has the clerk's attention. It holds what the clerk sees, patient data too.
class Journal {
  public:
    /// Begins the file anew. Throws std::runtime_error when it cannot be written, as all that writes does.
    explicit Journal(const std::filesystem::path& file);

    /// A command, as it stands in the script.
    void command(const std::string& text);

    /// A message box and how the script answered it.
    void message(const ui::Message& message, ui::Answer answer);

    /// The window as it is after a command; null when none is shown.
    void look(const ui::Window* window);

  private:
    void line(const std::string& text);

    os::GrowingFile m_file;
    std::string m_window;                                             ///< the one seen last
    std::map<std::string, std::map<std::string, std::string>> m_seen; ///< of each window, by the names of its parts
};

} // namespace opd::script
