#pragma once

#include "tests/support/model/NaiveStore.h"

/// A recorded edit of the reference model: what it holds and what it does, kind by kind.
struct xTNaiveOperation {
    /// The numbers are those of the told table.
    enum : int {
        overwriteKind = 0,
        insertKind,
        backspaceKind,
        enterKind,
        deleteKind,
        deleteRangeKind,
        pasteKind,
        insertBlockKind,
        noneKind,
        replaceKind,
        replaceAllKind,
        changeCaseKind,
        switchLayoutKind,
        unindentKind,
        indentKind,
        commentKind,
        uncommentKind,
    };
    struct xTRecord {
        xTPos pos;
        WString oldText;
        friend bool operator==(const xTRecord&, const xTRecord&) = default;
    };

    xTPos pos;
    int count = 0;
    int count2 = 0;
    WString text;
    WString text2;
    int kind = noneKind;
    WString findText;
    WString replaceText;
    bool wholeWord = false;
    bool matchCase = false;
    bool toUpper = false;
    bool move = false;
    bool afterSource = false;
    xTPos from;
    xTPos to;
    std::vector<xTRecord> replacements;
    bool split = false;

    static xTNaiveOperation Keystroke(const xTNaiveStore& store, unsigned key, bool overwrite);
    /// @param clipboard what a paste reads, null when the key pastes nothing
    static xTNaiveOperation Key(const xTNaiveStore& store, unsigned key, const WString* clipboard);
    static xTNaiveOperation Block(const xTNaiveStore& store, const WString& text, xTPos first, xTPos last, bool move);
    static xTNaiveOperation Range(const xTNaiveStore& store, xTPos first, xTPos last);
    static xTNaiveOperation Replace(const WString& find, const WString& replacement, bool all, bool wholeWord, bool matchCase);
    static xTNaiveOperation OfKind(int kind);

    /// @return true when the edit may be kept
    bool Apply(xTNaiveStore& store);
    void Undo(xTNaiveStore& store);
    void Redo(xTNaiveStore& store);

private:
    bool ApplyKind(xTNaiveStore& store);
    bool ApplyKeystroke(xTNaiveStore& store);
    void ApplyOverwrite(xTNaiveStore& store);
    void ApplyBlock(xTNaiveStore& store);
    bool ApplyReplace(xTNaiveStore& store);
    void ApplySelection(xTNaiveStore& store);
    void ApplyLines(xTNaiveStore& store);
    void UndoKind(xTNaiveStore& store);
    void UndoTyping(xTNaiveStore& store);
    void UndoBlock(xTNaiveStore& store);
    void UndoReplace(xTNaiveStore& store);
    void RedoKind(xTNaiveStore& store);
    void AutoIndent(xTNaiveStore& store);
    void ReplaceEach(xTNaiveStore& store);
    void WalkReplacements(xTNaiveStore& store, bool back);
    void GoToPos(xTNaiveStore& store) const;
};
