#pragma once

#include "store/Positions.h"
#include "tests/support/model/NaiveLine.h"

#include <functional>
#include <vector>

/// Raised where a line that must exist does not; the operation that notices it ends, and the text stays as far as it had
/// come.
struct xTNaiveFailure {};

/// The document of the reference model: the told rules of the store, one after the other, on a vector of plain lines.
/// It stands for a control whose window is there: every repaint is left out, the caret of the window is this caret.
class xTNaiveStore {
public:
    static constexpr int loadLimit = 512;
    static constexpr int insertLimit = 462;
    static constexpr int joinLimit = 512;

    /// What a user is shown.
    struct xTBox {
        unsigned string;   ///< its number in the string table
        int replacements;  ///< the number told in it
        friend bool operator==(const xTBox&, const xTBox&) = default;
    };
    /// What a search looks for.
    struct xTSearch {
        WString what;
        bool down = true;
        bool wholeWord = false;
        bool matchCase = false;
        bool fromCaret = false;
    };

    // Settings and the host
    bool keepTabs = true;
    int tabSize = 4;
    bool goRound = true;  ///< the host's answer when a search has gone round

    // The state that counts
    std::vector<xTNaiveLine> lines;
    xTPos caret;
    xTPos first = xTPos::none;
    xTPos last = xTPos::none;
    xTPos anchor = xTPos::none;
    bool commentsValid = false;
    int execLine = -1;
    std::vector<xTBox> boxes;

    // Text in (NaiveStore.cpp)
    void LoadText(const WString& text);

    // Reading and moving
    [[nodiscard]] int Count() const { return static_cast<int>(lines.size()); }
    [[nodiscard]] bool HasLine(int line) const { return line >= 0 && line < Count(); }
    [[nodiscard]] int Length(int line) const { return HasLine(line) ? lines[static_cast<std::size_t>(line)].Length() : 0; }
    [[nodiscard]] xTNaiveLine& LineAt(int line);
    [[nodiscard]] WString Tail(const xTPos& pos) const;
    [[nodiscard]] xTPos EndPos() const;
    bool NextPos(xTPos& pos, bool edge) const;
    bool PrevPos(xTPos& pos, bool edge) const;
    [[nodiscard]] WCHAR CharAt(const xTPos& pos) const;
    /// `to` is clipped to the end of the text in place.
    [[nodiscard]] WString GetText(const xTPos& from, xTPos& to) const;
    void SetCaretRaw(const xTPos& pos);
    void SetCaret(const xTPos& pos);
    void MoveCaret(int direction);

    // The selection
    [[nodiscard]] bool HasSelection() const { return first != xTPos::none && last != xTPos::none; }
    [[nodiscard]] WString SelectedText() { return GetText(first, last); }
    void SelectRange(const xTPos& a, const xTPos& b);
    void ClearSelection();
    void DropSelection();
    void DropAnchor();
    void ExtendSelection(int direction);

    // Marks of the host (NaiveMarks.cpp)
    int SetBreakPoint(int line);
    int RemoveBreakPoint(int line);
    void RemoveAllBreakPoints();
    [[nodiscard]] int BreakPointCount() const;
    [[nodiscard]] int BreakPointLine(int index) const;
    bool SetExecPoint(int line);
    void ClearExecPoint();
    void TakeSnapshot();
    void RescanComments();

    // Primitives (NaiveEditing.cpp)
    void InsertText(const xTPos& pos, int& count, WString& text, bool rejoin);
    void DeleteText(const xTPos& pos, int count, bool* split = nullptr);
    void DeleteAtCaret(WString& text, xTPos& pos, int& count, bool& split);
    void OverwriteChar(const xTPos& pos, WCHAR ch);
    void OverwriteAtCaret(WCHAR ch);
    bool ReplaceAt(const xTPos& pos, const WString& old, const WString& replacement);

    // Search (NaiveSearch.cpp)
    [[nodiscard]] xTPos FindText(const xTSearch& search, bool* wrapped = nullptr) const;
    void ReplaceAndNext(xTPos& pos, WString& find, const WString& replacement, bool wholeWord, bool matchCase);

    // Blocks (NaiveBlocks.cpp)
    void IndentBlock();
    void UnindentBlock();
    void CommentBlock(bool remove);
    void ChangeCase(bool upper, const xTPos& from, const xTPos& to);
    void SwitchLayout(const xTPos& from, const xTPos& to);

private:
    struct xTPiece {
        xTNaiveLine line;
        bool broken = false;
    };
    void CutLines(const WString& text);
    void InsertAtCaret(int& count, WString& text, bool rejoin);
    void InsertPieces(int& count, WString& text);
    static bool ReadPiece(const WString& text, int count, int& offset, xTPiece& piece);
    static void Fold(xTPiece& piece, int excess, int keep, int& count, WString& text, int& offset);
    void InsertPiece(int& count, const xTPos& pos, xTNaiveLine& piece);
    void SplitLine(const xTPos& pos);
    void RejoinLines();
    void RemoveLine(int line);
    void DeleteRound(const xTPos& start, xTPos& cursor, int& count, int& shift, bool firstRound, bool* split);
    void JoinNext(xTPos& cursor, int& shift, bool* split);
    void ShiftSelection(const xTPos& start, int delta, int shift);
    void ExtendLeft();
    void ExtendRight();
    void ExtendUp();
    void ExtendDown();
    void MoveCaretDownToEnd();
    [[nodiscard]] xTPos BeforeCaret() const;
    void SelectWholeLines();
    [[nodiscard]] bool FrameHolds() const { return HasLine(first.line) && HasLine(last.line); }
    void ReplaceColumns(int line, int from, int to, const std::function<WString(const WString&)>& convert);
};
