#include "script/player.h"

#include "script/answers.h"
#include "script/command_line.h"
#include "script/commands.h"
#include "script/days.h"
#include "script/journal.h"

#include <algorithm>
#include <deque>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace opd::script {

namespace {

/// A line of the script: a command with its words, or an answer to queue.
struct Step {
    std::size_t line = 0;
    const Command* command = nullptr; ///< null for an answer
    std::vector<std::string> words;
    QueuedAnswer answer;
    std::string file = {}; ///< not empty: a file to queue
    std::string text = {}; ///< the whole line
};

Step stepOf(std::size_t line, std::vector<std::string> words) {
    const std::string name = words.front();
    words.erase(words.begin());
    if (name == "answer")
        return {line, nullptr, {}, queuedAnswer(line, words)};
    if (name == "file" && words.size() == 1)
        return {line, nullptr, {}, {}, words.front()};
    const Command* const command = findCommand(name);
    if (command == nullptr)
        throw std::runtime_error("there is no command " + name);
    if (words.size() != command->arguments)
        throw std::runtime_error(name + " takes " + std::to_string(command->arguments) + " words, but " +
                                 std::to_string(words.size()) + " follow it");
    return {line, command, std::move(words), {}};
}

std::string buttonsText(const ui::Message& message) {
    std::string text;
    for (const ui::Answer answer : ui::answersOf(message.buttons))
        text += (text.empty() ? "" : ", ") + std::string{captionOf(answer)};
    return text;
}

} // namespace

struct Player::State {
    std::string file;
    std::ostream& output;
    std::deque<Step> steps = {};
    std::deque<QueuedAnswer> answers = {};
    std::deque<std::pair<std::size_t, std::string>> files = {}; ///< with the lines that queued them
    std::optional<std::string> failure = {};
    std::size_t line = 0; ///< of the command that is being played
    std::unique_ptr<Journal> journal = {};
    Keystrokes keystrokes = {};

    void fail(std::size_t atLine, const std::string& reason) {
        if (!failure)
            failure = file + ":" + std::to_string(atLine) + ": " + reason;
        steps.clear();
    }
};

Player::Player(const std::filesystem::path& file, std::ostream& output, const DateTime& today)
    : m_state(std::make_unique<State>(State{file.string(), output})) {
    std::ifstream stream(file);
    if (!stream || std::filesystem::is_directory(file)) // a folder reads like an empty script, in which all holds
        throw std::runtime_error("The script " + file.string() + " cannot be read.");
    std::string text;
    for (std::size_t line = 1; std::getline(stream, text); ++line) {
        try {
            std::vector<std::string> words = wordsOf(text);
            for (std::string& word : words)
                word = withDays(word, today);
            if (words.empty())
                continue;
            m_state->steps.push_back(stepOf(line, std::move(words)));
            m_state->steps.back().text = text;
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(file.string() + ":" + std::to_string(line) + ": " + error.what());
        }
    }
}

Player::~Player() = default;

void Player::keepJournal(const std::filesystem::path& file) {
    m_state->journal = std::make_unique<Journal>(file);
}

bool Player::ended() const {
    return m_state->steps.empty() && m_state->answers.empty() && m_state->files.empty();
}

const std::optional<std::string>& Player::failure() const {
    return m_state->failure;
}

void Player::end() {
    if (!m_state->steps.empty())
        m_state->fail(m_state->steps.front().line, "expected a window, but the desk was closed");
}

void Player::step(Driver& driver) {
    if (m_state->steps.empty()) {
        if (const auto left = std::exchange(m_state->answers, {}); !left.empty())
            m_state->fail(left.front().line,
                          "expected a message box \"" + left.front().text + "\", but none was shown");
        if (const auto left = std::exchange(m_state->files, {}); !left.empty())
            m_state->fail(left.front().first, "expected a question for a file, but there was none");
        return;
    }
    const Step step = std::move(m_state->steps.front());
    m_state->steps.pop_front();
    m_state->line = step.line;
    if (!step.file.empty()) {
        m_state->files.emplace_back(step.line, step.file);
        return;
    }
    if (step.command == nullptr) {
        m_state->answers.push_back(step.answer);
        return;
    }
    if (m_state->journal)
        m_state->journal->command(step.text);
    try {
        if (step.command->byMouse && m_state->keystrokes.uncountable.empty())
            m_state->keystrokes.uncountable = step.command->name;
        step.command->run({driver, m_state->output, m_state->keystrokes}, step.words);
    } catch (const std::exception& mismatch) {
        m_state->answers.clear();
        m_state->fail(step.line, mismatch.what());
    }
    if (m_state->journal)
        m_state->journal->look(driver.currentWindow());
}

std::optional<ui::Answer> Player::answerTo(const ui::Message& message) {
    const std::string shown = "there is \"" + message.text + "\" (" + buttonsText(message) + ")" +
                              (message.detail.empty() ? "" : " about \"" + message.detail + "\"");
    if (m_state->answers.empty()) {
        m_state->fail(m_state->line, "expected no message box, but " + shown);
        return std::nullopt;
    }
    const QueuedAnswer expected = m_state->answers.front();
    m_state->answers.pop_front();
    ++m_state->keystrokes.count; // Enter on its default button, or the key of another
    const std::vector<ui::Answer> offered = ui::answersOf(message.buttons);
    if (expected.fits(message) && std::find(offered.begin(), offered.end(), expected.button) != offered.end()) {
        if (m_state->journal)
            m_state->journal->message(message, expected.button);
        return expected.button;
    }
    m_state->answers.clear();
    m_state->fail(expected.line, "expected a message box " + std::string{expected.like ? "like " : ""} + "\"" +
                                     expected.text + "\" with a button \"" + captionOf(expected.button) + "\"" +
                                     (expected.detail.empty() ? "" : " about \"" + expected.detail + "\"") + ", but " +
                                     shown);
    return std::nullopt;
}

std::optional<std::filesystem::path> Player::fileFor(const ui::FileQuestion& question) {
    if (m_state->files.empty()) {
        m_state->fail(m_state->line, "expected no question for a file, but there is \"" + question.caption + "\"");
        return std::nullopt;
    }
    const std::filesystem::path file = m_state->files.front().second;
    m_state->files.pop_front();
    return file;
}

} // namespace opd::script
