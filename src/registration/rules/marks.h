#pragma once

#include "ui/controls.h"
#include "ui/window.h"

#include <functional>
#include <string>
#include <utility>

/// The marks by which a clerk sees at a field why it was refused, and how they are taken back.
namespace opd::registration {

/// Lets an event do something more, after what it did before.
inline void alsoOn(std::function<void()>& event, std::function<void()> more) {
    event = [before = std::move(event), more = std::move(more)] {
        if (before)
            before();
        more();
    };
}

/// Takes a mark back as soon as the field's content is changed into something that it is not refused for.
inline void takeBackWhen(ui::Control& field, std::string fault, std::function<bool()> isRight) {
    alsoOn(field.onChange, [&field, fault = std::move(fault), isRight = std::move(isRight)] {
        if (field.refusal() == fault && isRight())
            field.setRefusal({});
    });
}

/// Marks a field as refused, or as accepted, and returns whether it is refused, for the field's validation. What is
/// refused is selected, so that typing again replaces it.
inline bool refusedUnless(bool accepted, ui::Control& field, const char* reason) {
    field.setRefusal(accepted ? "" : reason);
    if (!accepted)
        field.window().setFocus(field);
    return !accepted;
}

} // namespace opd::registration
