#pragma once

#include "base/clock/date_time.h"
#include "script/driver.h"
#include "ui/desktop.h"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace opd::script {

/// Plays an operator script, one command at a time, on any desktop through its driver. The first failure ends the
/// script; what it was is kept as "FILE:LINE: what was expected, what was there".
class Player {
  public:
    /// Reads the whole script, whose "{today}" is the given day; `print` commands write to `output`. Throws
    /// std::runtime_error with file and line when it cannot be read or a line is no command.
    Player(const std::filesystem::path& file, std::ostream& output, const DateTime& today);
    ~Player();

    /// Writes a journal of the script from now on. Throws std::runtime_error when the file cannot be written.
    void keepJournal(const std::filesystem::path& file);

    /// True when the script has ended or failed.
    bool ended() const;
    const std::optional<std::string>& failure() const;

    /// Nothing will be shown any more: commands that are left are a failure.
    void end();

    /// Carries out the next command. After the last one, answers left over are a failure.
    void step(Driver& driver);

    /// The answer to a message box: the next queued one when text and buttons fit. Otherwise the script fails, and
    /// nothing is returned: the desktop then closes everything.
    std::optional<ui::Answer> answerTo(const ui::Message& message);

    /// The answer to a question for a file: the next queued one. Otherwise the script fails, and nothing is returned.
    std::optional<std::filesystem::path> fileFor(const ui::FileQuestion& question);

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace opd::script
