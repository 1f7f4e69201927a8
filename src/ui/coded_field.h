#pragma once

#include "ui/controls.h"

#include <string>

namespace opd::ui {

/// A code that is looked up, declared in one: the box that it is typed into, the button that lists the codes, and the
/// box that shows what the code stands for. What holds for every such field follows from that: the button is no stop of
/// the Tab key and answers F4 in the code's box, the name is only shown, and each is called after the code.
class CodedField {
  public:
    /// The three in the order in which they were declared.
    CodedField(TextBox& code, Button& lookup, TextBox& name);
    CodedField(const CodedField&) = delete;
    CodedField& operator=(const CodedField&) = delete;

    TextBox& code;
    Button& lookup;
    TextBox& name;

    /// Puts in what a lookup found.
    void show(const std::string& foundCode, const std::string& foundName);

    /// Marks the code as refused, and leads the clerk back to it with everything in it selected.
    void refuse(std::string_view reason);

    /// Marks the code, and lets the clerk go on.
    void mark(std::string_view reason);

    /// Takes back the mark that the field itself has set; one that another check has set stays.
    void accept();

  private:
    std::string m_reason; ///< of the last mark
};

/// True for a button that lists what a code field may hold.
bool isLookup(const Control& control);

} // namespace opd::ui
