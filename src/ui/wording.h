#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace opd::ui {

/// A text that is written into the program, and is there as long as the program is: nobody needs a copy of it.
class Literal {
  public:
    constexpr Literal() = default;
    template <std::size_t Size> constexpr Literal(const char (&text)[Size]) : m_text(text, Size - 1) {}

    constexpr operator std::string_view() const { return m_text; }

  private:
    std::string_view m_text;
};

/// What a control says: a literal as a rule, and a text of its own where it is put together while the program runs.
class Wording {
  public:
    Wording() = default;
    Wording(Literal literal) : m_text(literal) {}

    Wording& operator=(Literal literal) {
        m_text = literal;
        m_own.reset();
        return *this;
    }

    /// Puts a copy of a text in.
    void set(std::string_view text) {
        auto own = std::make_unique<const std::string>(text); // the text may be a part of the one before
        m_text = *own;
        m_own = std::move(own);
    }

    bool empty() const { return m_text.empty(); }
    operator std::string_view() const { return m_text; }

  private:
    std::string_view m_text;
    std::unique_ptr<const std::string> m_own;
};

} // namespace opd::ui
