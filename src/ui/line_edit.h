#pragma once

#include "ui/keys.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ui {

/// How much of a limit a text takes. It counts as the databases do, where a character beyond U+FFFF is two.
std::size_t places(std::u32string_view characters);

/// What of a text fits into a box that has `kept` places taken beside it; 0 is no limit.
std::string fitting(std::string_view utf8, int maxLength, std::size_t kept);

/// A text that is edited: its caret, what is selected, and what can be undone. It knows no control and no filter; what
/// is put in has passed them. A caret stands before the character of its number.
///
/// With a mask the text is always as long as the mask, digits and blanks stand in the places of "#", and erasing leaves
/// a blank. The separator that comes next closes a part that was begun: "3" and "/" make "03/".
class LineEdit {
  public:
    /// `maxLength` counts characters, 0 for no limit; with a mask it has no meaning.
    struct Rules {
        std::string mask = {};
        int maxLength = 0;
        bool multiLine = false;
        bool readOnly = false;
    };

    /// Holds another text from now on. Nothing is selected, the caret stands behind the last character (in a mask at
    /// its beginning), and nothing can be undone.
    void load(std::string_view utf8, Rules rules);

    std::string text() const;
    std::string selection() const;
    std::size_t caret() const { return m_caret; }
    int maxLength() const { return m_rules.maxLength; }

    /// Selects from `anchor` to `caret`; nothing when they are one.
    void place(std::size_t anchor, std::size_t caret);
    void selectAll() { place(0, m_text.size()); }

    /// Puts a text in the place of what is selected. A text that fills the whole mask takes the place of everything.
    void insert(std::string_view utf8);

    /// True when something of the last text that was put in found no room.
    bool isCut() const { return m_isCut; }

    /// Takes away what is selected.
    void eraseSelection();

    /// What a stroke does that the window left to the content: a character is put in, Enter begins a line, Left, Right,
    /// Home, End, Backspace and Delete work with Shift and Ctrl, Ctrl+A selects all, Ctrl+C and Ctrl+X put what is
    /// selected into `clipboard`, Ctrl+Z and Ctrl+Y undo and redo. Every other stroke does nothing; what is pasted has
    /// to pass the window first and is put in by `insert`.
    void press(const KeyStroke& key, std::string& clipboard);

  private:
    enum class Change { None, Insertion, Backspace, Deletion };
    struct State {
        std::u32string text;
        std::size_t anchor = 0;
        std::size_t caret = 0;
    };

    bool hasSelection() const { return m_anchor != m_caret; }
    bool isMasked() const { return !m_rules.mask.empty(); }
    bool isSeparator(std::size_t place) const { return isMasked() && m_rules.mask[place] != '#'; }
    std::size_t target(const KeyStroke& key) const;
    std::size_t wordLeft() const;
    std::size_t wordRight() const;
    std::size_t lineStart() const;
    std::size_t lineEnd() const;
    std::size_t placeFrom(std::size_t place) const;
    std::size_t placeBefore(std::size_t place) const;
    void move(const KeyStroke& key);
    void pressLetter(char32_t letter, bool shift, std::string& clipboard);
    void remember(Change change);
    void removeRange(std::size_t from, std::size_t to);
    void backspace(bool word);
    void erase(bool word);
    void enterIntoMask(char32_t character);
    void closePart(std::size_t separator);
    void restore(std::vector<State>& from, std::vector<State>& to);
    State state() const { return {m_text, m_anchor, m_caret}; }

    Rules m_rules;
    std::u32string m_text;
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
    bool m_isCut = false;
    Change m_lastChange = Change::None; ///< changes of one kind that follow each other are undone together
    std::vector<State> m_done;
    std::vector<State> m_undone;
};

} // namespace opd::ui
