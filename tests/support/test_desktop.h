#pragma once

#include "base/text/text.h"
#include "ui/desktop.h"
#include "ui/window.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace opd::tests {

/// A desktop for one test: message boxes are answered from a queue, windows are worked by a queued function each, and
/// closed when it is done.
class TestDesktop final : public ui::Desktop {
  public:
    using Work = std::function<void(ui::Window&)>;

    /// What the clerk does in the next window that is shown.
    void work(Work work) { m_work.push_back(std::move(work)); }
    void forgetWork() { m_work.clear(); }

    /// The answer to the next message box.
    void answer(ui::Answer answer) { m_answers.push_back(answer); }

    /// The answers to the next boxes, by the initials of Yes, No, Ok and Cancel.
    void answers(const std::string& initials) {
        for (const char initial : initials)
            answer(initial == 'Y'   ? ui::Answer::Yes
                   : initial == 'N' ? ui::Answer::No
                   : initial == 'O' ? ui::Answer::Ok
                                    : ui::Answer::Cancel);
    }

    std::vector<ui::Message> messages; ///< all that were shown
    std::vector<std::string> shown;    ///< names of the windows that were shown; modeless ones end in "~"
    bool agreesToAll = false;          ///< answers Yes or OK where nothing is queued
    int beeps = 0;
    std::vector<ui::FileQuestion> fileQuestions;
    std::optional<std::filesystem::path> file; ///< the answer to a question for a file

    /// Remembers what was printed and written.
    struct Press final : report::Output {
        report::Printed outcome = report::Printed::Done;
        std::vector<std::string> printed; ///< the texts of the documents; those printed at once begin with "!"
        std::vector<std::filesystem::path> files;
        report::PrintChoice offered; ///< what the last one began with
        report::PrintChoice chosen;  ///< what the clerk makes of it, where a printer is named
        report::Printed print(const report::Document& document, bool atOnce, report::PrintChoice& choice) override {
            printed.push_back((atOnce ? "!" : "") + document.text);
            offered = choice;
            if (!atOnce && !chosen.printer.empty())
                choice = chosen;
            return outcome;
        }
        void writePdf(const report::Document&, const std::filesystem::path& to) override { files.push_back(to); }
    } press;

    void showModal(ui::Window& window) override {
        const SilentView* const view = open(window, window.name());
        window.unload();
        std::erase_if(m_views, [view](const auto& kept) { return kept.get() == view; });
    }

    void show(ui::Window& window) override { open(window, window.name() + "~"); }
    void waitForWindows() override {}

    ui::Answer ask(const ui::Message& message) override {
        messages.push_back(message);
        const std::vector<ui::Answer> offered = ui::answersOf(message.buttons);
        if (m_answers.empty() && agreesToAll)
            return offered.front();
        if (m_answers.empty()) {
            ADD_FAILURE() << "An unexpected message: " << message.text;
            return ui::Answer::Cancel;
        }
        const ui::Answer answer = m_answers.front();
        m_answers.pop_front();
        if (std::find(offered.begin(), offered.end(), answer) != offered.end())
            return answer;
        ADD_FAILURE() << "An answer whose button the box does not have: " << message.text;
        return offered.back();
    }

    std::optional<std::filesystem::path> askFile(const ui::FileQuestion& question) override {
        fileQuestions.push_back(question);
        return file;
    }
    report::Output& output() override { return press; }

    void beep() override { ++beeps; }
    void setBusy(bool busy) override { m_busy = busy; }
    bool isBusy() const override { return m_busy; }

    bool allAnswersGiven() const { return m_answers.empty(); }

    /// Types characters into the control that has the focus, as far as the window lets them through.
    static void type(ui::Window& window, const std::string& characters) {
        for (const char32_t character : text::decode(characters))
            if (const char32_t kept = window.pressKey(character); kept >= ui::key::space)
                if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()))
                    window.edited(*box, box->text() + text::encode(kept));
    }

  private:
    struct SilentView final : ui::WindowView {
        void changed(ui::Control&, ui::Aspect) override {}
        void focusMoved(ui::Control*) override {}
        void closed() override {}
    };

    const SilentView* open(ui::Window& window, const std::string& name) {
        window.load();
        shown.push_back(name);
        SilentView* const view = m_views.emplace_back(std::make_unique<SilentView>()).get();
        window.opened(*view);
        if (m_work.empty())
            return view;
        const Work work = std::move(m_work.front());
        m_work.pop_front();
        work(window);
        return view;
    }

    std::deque<Work> m_work;
    std::deque<ui::Answer> m_answers;
    std::vector<std::unique_ptr<SilentView>> m_views;
    bool m_busy = false;
};

} // namespace opd::tests
