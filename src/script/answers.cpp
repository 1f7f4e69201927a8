#include "script/answers.h"

#include "script/pattern.h"

#include <stdexcept>

namespace opd::script {

bool QueuedAnswer::fits(const ui::Message& message) const {
    const bool isText = like ? describes(text, message.text) : message.text == text;
    return isText && (detail.empty() || describes(detail, message.detail));
}

QueuedAnswer queuedAnswer(std::size_t line, const std::vector<std::string>& words) {
    const bool hasDetail = words.size() == 5 && words[3] == "detail";
    if ((words.size() != 3 && !hasDetail) || (words[1] != "to" && words[1] != "like"))
        throw std::runtime_error("answer is followed by a button, \"to\" or \"like\", and a text");
    for (const ui::Answer button : {ui::Answer::Ok, ui::Answer::Cancel, ui::Answer::Yes, ui::Answer::No})
        if (words[0] == captionOf(button))
            return {line, button, words[2], words[1] == "like", hasDetail ? words[4] : std::string{}};
    throw std::runtime_error("no message box has a button \"" + words[0] + "\"");
}

const char* captionOf(ui::Answer answer) {
    switch (answer) {
    case ui::Answer::Ok:
        return "OK";
    case ui::Answer::Cancel:
        return "Cancel";
    case ui::Answer::Yes:
        return "Yes";
    case ui::Answer::No:
        break;
    }
    return "No";
}

} // namespace opd::script
