#include "ui/desktop.h"

#include <stdexcept>

namespace opd::ui {

namespace {

struct NoOutput final : report::Output {
    report::Printed print(const report::Document&, bool, report::PrintChoice&) override {
        return report::Printed::NoPrinter;
    }
    void writePdf(const report::Document&, const std::filesystem::path&) override {
        throw std::runtime_error("A desktop without a screen writes no PDF files.");
    }
};

thread_local Desktop* threadDesktop = nullptr;

} // namespace

Desktop* Desktop::ofThread() {
    return threadDesktop;
}

std::vector<Answer> answersOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return {Answer::Ok};
    case Buttons::OkCancel:
        return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
        break;
    }
    return {Answer::Yes, Answer::No, Answer::Cancel};
}

Answer escapeAnswer(Buttons buttons) {
    return answersOf(buttons).back();
}

std::optional<std::filesystem::path> Desktop::askFile(const FileQuestion&) {
    return std::nullopt;
}

report::Output& Desktop::output() {
    static NoOutput none;
    return none;
}

void Desktop::setOfThread(Desktop* desktop) {
    threadDesktop = desktop;
}

} // namespace opd::ui
