#pragma once

#include "ui/controls.h"
#include "ui/window.h"

#include <concepts>

/// The marks by which a clerk sees at a field why it was refused, and how they are taken back.
namespace opd::registration {

/// Takes a mark back as soon as the field's content is changed into something that it is not refused for.
template <std::predicate IsRight> void takeBackWhen(ui::Control& field, const char* fault, IsRight isRight) {
    field.onChange.also([&field, fault, isRight] {
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
