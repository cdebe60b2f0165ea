#pragma once

#include "editing/operations.h"

#include <list>

/// The single door through which a user's edit reaches the text. Each `add_` operation builds an xTOperation, empties
/// the redo list, applies the operation and keeps it for undo. Nothing is merged: one call is one step. No failure
/// leaves an operation of this class.
///
/// Key codes are virtual key codes, in characters where a character was typed.
class xTOperStack {
public:
    using xTOperation = ::xTOperation;

    static constexpr std::int32_t stepLimit = 300;

    /// @param window, store not owned, both may be null
    xTOperStack(xTStoreWindow* window, xTMemStorage* store) noexcept : window(window), store(store) {}
    xTOperStack(const xTOperStack& other);
    xTOperStack& operator=(const xTOperStack& other);
    ~xTOperStack() = default;

    void add_char(std::uint32_t key, bool overwrite);
    /// Delete (46) and paste (45 with Shift, or 0x1001). The host is told for the keys 45, 46 and 0x1001.
    void add_key(std::uint32_t key);
    /// Inserts `text`, less its carriage returns, at the caret and, with `move`, takes the range away. All that follow
    /// tell the host, whether a step was kept or not, but for add_replace.
    void add_block(const CString& text, const xTPos& first, const xTPos& last, bool move);
    void add_delete(const xTPos& first, const xTPos& last);
    void add_case(bool upper);
    void add_layout();
    void add_indent(bool remove);
    void add_comment(std::int32_t mode);  ///< 0 add, 1 remove, anything else nothing
    void add_replace(const xTSearchRequest& request);

    bool undo();  ///< @return true when one step was undone
    bool redo();  ///< @return true when one step was redone
    void clear_undo();
    void clear_redo();

    [[nodiscard]] bool can_undo() const noexcept { return !undoList.empty(); }
    [[nodiscard]] bool can_redo() const noexcept { return !redoList.empty(); }

    // The head of each list is the newest step, or the next to redo. Steps change lists as nodes, so that no change of
    // list can fail.
    std::list<xTOperation> undoList;
    std::list<xTOperation> redoList;
    std::int32_t capacity = stepLimit;  ///< of each list by itself
    xTStoreWindow* window;
    xTMemStorage* store;

private:
    template <typename Request>
    void Run(const Request& request);
    bool push_undo(std::list<xTOperation>& step);
    void Notify() const;
    void CopyList(const std::list<xTOperation>& from, std::list<xTOperation>& to) const;
};
