#pragma once

#include "editing/StepText.h"
#include "framework/base/CString.h"
#include "store/Positions.h"

#include <cstdint>
#include <vector>

class xTMemStorage;
class xTStoreWindow;
struct xTSearchRequest;

/// One replacement of a replace-all: where, and the matched text exactly as it stood.
struct xTReplaceRecord {
    xTPos pos;
    CString old_text;
    /// The whole line ahead of its first replacement, empty for further ones. It shares the line's buffer, which undo gives
    /// back to the line: what a load has carved stays where it is, and nothing is built anew.
    CString line;
};

/// One recorded edit: what is needed to do it, to undo it and to do it again, all through the primitives of the store.
/// The constructors only read the store. A failure in any of its operations is reported and stays inside; what was
/// changed before it stays changed.
class xTOperation {
public:
    enum xTKind : std::int32_t {
        overwrite = 0,     ///< replaces the character at the position by a typed one
        insert = 1,        ///< a typed character
        backspace = 2,     ///< the character before the caret goes
        enter = 3,         ///< breaks the line, with auto-indent
        erase = 4,         ///< the Delete key: the selection or one character goes
        delete_range = 5,  ///< a given range goes: the move half of a drag out of the control
        paste = 6,         ///< the clipboard's text
        insert_block = 7,  ///< text comes in, and with `move` a source range goes
        none = 8,          ///< does nothing and is never kept
        replace = 9,       ///< the selected match, then finds the next
        replace_all = 10,
        change_case = 11,
        switch_layout = 12,
        unindent = 13,
        indent = 14,
        comment = 15,
        uncomment = 16,
    };

    // What tells the constructors apart.
    struct xTTyped { std::uint32_t key; bool overwrite; };
    struct xTKey { std::uint32_t key; };
    struct xTBlock { CString text; xTPos first; xTPos last; bool move; };  ///< no source: `first` and `last` none
    struct xTRange { xTPos first; xTPos last; };
    struct xTCase { bool upper; };
    struct xTLayout {};
    struct xTIndent { bool remove; };
    struct xTComment { std::int32_t mode; };  ///< 0 add, 1 remove, anything else nothing

    static constexpr std::uint32_t pasteCode = 0x1001;  ///< a private key code, no virtual key: paste

    xTOperation(const xTTyped& typed, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTKey& pressed, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTBlock& block, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTRange& range, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTCase& request, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTLayout& request, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTIndent& request, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTComment& request, xTStoreWindow* window, xTMemStorage* store);
    xTOperation(const xTSearchRequest& request, xTStoreWindow* window, xTMemStorage* store);
    /// Takes over position, count, text, kind, `split`, window and store, and nothing else: that is all that the copy
    /// of a stack is told to hold.
    xTOperation(const xTOperation& other);
    xTOperation& operator=(const xTOperation&) = delete;

    /// @return true when the edit happened and may be kept, and also after a failure
    bool apply();
    void undo();
    void redo();
    /// `count`, counted where the whole text was deleted and nobody has asked yet.
    [[nodiscard]] std::int32_t Count() const { return text.Counted(count); }

    xTPos pos;               ///< where the edit acts; the view is sent there before undo and redo
    std::int32_t count = 0;  ///< characters of `text` that the edit handles, see Count(); 0 keeps it off the stack
    std::int32_t count2 = 0;
    xTStepText text;         ///< added or removed; for block kinds the lines before the change
    xTStepText text2;        ///< taken away by a move; for block kinds the lines after the change
    std::int32_t kind = none;
    CString find_text;
    CString replace_text;
    bool whole_word = false;
    bool match_case = false;
    bool to_upper = false;
    bool move = false;
    bool after_source = false;  ///< the drop point was at or behind the source, so insertion came first
    xTPos from;                 ///< insert_block: the source; change_case, switch_layout: the selection as it stood
    xTPos to;
    xTStoreWindow* window;      ///< not owned; may be null
    xTMemStorage* store;        ///< not owned; may be null
    /// In the order of replacing. Filled and walked from one end only, so no deque: an empty one of those costs every
    /// keystroke two blocks.
    std::vector<xTReplaceRecord> replacements;
    xTSelection changed;        ///< block kinds: the selection as it stood, for a redo without the new text
    bool split = false;         ///< the deletion stopped at the join limit; undo hands it back as `rejoin`

private:
    xTOperation(std::int32_t kind, xTStoreWindow* window, xTMemStorage* store) noexcept;

    void read_character_before();
    void read_clipboard_text();

    [[nodiscard]] bool apply_kind();
    void apply_overwrite();
    void apply_delete_range();
    void apply_backspace();
    void apply_enter();
    void apply_block();
    [[nodiscard]] bool apply_replace();
    void apply_replace_all();
    void apply_to_selection();
    void apply_to_lines();
    void auto_indent();
    void replace_matches();
    [[nodiscard]] bool replace_match(const xTPos& at, bool holdsTab, xTStringSlabs& slabs);
    [[nodiscard]] bool match_text(const xTPos& at, bool holdsTab, CString& present) const;
    [[nodiscard]] bool match_reads(const xTPos& at, WStrView text) const;

    void undo_kind();
    void undo_overwrite();
    void undo_paste();
    void undo_enter();
    void undo_block();
    void redo_kind();
    void insert_and_show();
    void redo_lines();
    void swap_texts(xTStepText& present, std::int32_t& removed, xTStepText& wanted, std::int32_t& added);
    void swap_match(const CString& present, const CString& wanted);
    void swap_matches(bool back);

    void transform_selection();
    void transform_lines();
    void show_place();
    void clear_selection();
    void invalidate() const;
    void update_now() const;
    void ensure_caret_visible() const;
};
