#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>

namespace opd::ui {

/// Something that happens to a control. Few of its events have anybody who asks for them: such a one takes the room of
/// a pointer, and raising it does nothing.
template <class... Arguments> class Event {
  public:
    /// Puts a handler in the place of all that there are.
    template <std::invocable<Arguments...> Handler> Event& operator=(Handler handler) {
        m_first = std::make_unique<Answer<Handler>>(std::move(handler));
        return *this;
    }
    Event& operator=(std::nullptr_t) {
        m_first.reset();
        return *this;
    }

    /// Lets it do something more, after what it did before.
    template <std::invocable<Arguments...> Handler> void also(Handler handler) {
        std::unique_ptr<AnyAnswer>* last = &m_first;
        while (*last)
            last = &(*last)->next;
        *last = std::make_unique<Answer<Handler>>(std::move(handler));
    }

    explicit operator bool() const { return m_first != nullptr; }

    /// Raises it.
    void operator()(Arguments... arguments) const {
        for (AnyAnswer* answer = m_first.get(); answer != nullptr; answer = answer->next.get())
            answer->give(arguments...);
    }

  private:
    struct AnyAnswer {
        virtual ~AnyAnswer() = default;
        virtual void give(Arguments... arguments) = 0;

        std::unique_ptr<AnyAnswer> next;
    };

    /// Holds its handler itself, whatever that captures: one allocation, and none but for those that are asked for.
    template <class Handler> struct Answer final : AnyAnswer {
        explicit Answer(Handler&& does) : handler(std::move(does)) {}
        void give(Arguments... arguments) override { handler(arguments...); }

        Handler handler;
    };

    std::unique_ptr<AnyAnswer> m_first;
};

} // namespace opd::ui
