#pragma once

#include "tests/support/model/NaiveOperation.h"

#include <deque>

/// The reference model of the editing engine: the store, the steps to undo and to redo, and the door through which every
/// edit goes. The keys that are down and the clipboard are given, not asked for.
class xTNaiveEditor {
public:
    static constexpr std::size_t capacity = 300;

    xTNaiveStore store;
    std::deque<xTNaiveOperation> undoList;  ///< the newest first
    std::deque<xTNaiveOperation> redoList;  ///< the next to redo first

    bool shiftDown = false;
    bool controlDown = false;
    bool insertDown = false;
    bool deleteDown = false;
    bool clipboardHoldsText = true;
    WString clipboard;

    void AddChar(unsigned key, bool overwrite);
    void AddKey(unsigned key);
    void AddBlock(const WString& text, const xTPos& first, const xTPos& last, bool move);
    void AddDelete(const xTPos& first, const xTPos& last);
    void AddCase(bool upper);
    void AddLayout();
    void AddIndent(bool remove);
    void AddComment(int mode);
    void AddReplace(const WString& find, const WString& replacement, bool all, bool wholeWord, bool matchCase);
    bool Undo();
    bool Redo();

    /// A new text, as the host loads one: both lists go.
    void LoadText(const WString& text);

private:
    void Run(xTNaiveOperation operation);
    void PushUndo(xTNaiveOperation operation);
};
