#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"
#include "store/Positions.h"

#include <memory>

class xTMemStorage;

/// A text of several lines that goes out of a store, held as the lines that it was: the end of one, whole lines, the
/// start of another. The records of the whole lines move in here; put back, they share their characters with those of
/// the store. So no character is copied, neither when a block goes nor when it comes back.
///
/// What it spells is what reading the range as a string gives, and putting it back gives what inserting that string
/// does. A range of which that cannot be said is not held.
class xTHeldText {
public:
    /// Looks at a range, both ends inclusive, that is about to be deleted. It is held when the deletion, begun at
    /// `from`, takes its inner lines as a whole and one by one.
    /// @return null for a text that has to be kept as a string
    [[nodiscard]] static std::shared_ptr<xTHeldText> Plan(const xTMemStorage& store, const xTPos& from, const xTPos& to);

    /// The same for the `count` characters from `from` on, a break being one, if they are `text`: inserted there, it
    /// can be held as lines from then on.
    [[nodiscard]] static std::shared_ptr<xTHeldText> Plan(const xTMemStorage& store, const xTPos& from,
                                                          std::int32_t count, const CString& text);

    /// Holds a range that stays where it is, both ends inclusive, with lines that share their characters with it.
    /// @return null for a text that has to be kept as a string
    [[nodiscard]] static std::shared_ptr<xTHeldText> Share(xTMemStorage& store, const xTPos& from, const xTPos& to);

    /// The first of the whole lines in the store, and how many they are.
    [[nodiscard]] std::int32_t FirstLine() const noexcept { return m_firstLine; }
    [[nodiscard]] std::int32_t LineCount() const noexcept { return m_lineCount; }
    /// The characters of the whole lines, each with its break, and those of the text.
    [[nodiscard]] std::int32_t WholeLength() const noexcept { return m_wholeLength; }
    [[nodiscard]] std::int32_t Length() const noexcept
    {
        return m_head.GetLength() + 1 + m_wholeLength + m_tail.GetLength();
    }
    /// Of the whole lines: how many empty ones stand at their end, and whether there is a `/` or a `*`.
    [[nodiscard]] std::int32_t EmptyAtEnd() const noexcept { return m_emptyAtEnd; }
    [[nodiscard]] bool HoldsMark() const noexcept { return m_holdsMark; }

    /// Moves the whole lines in here from where they were looked at. It cannot fail: the room is there since then.
    void TakeLines(CArray<xTExtString>& lines)
    {
        lines.TakeOut(m_firstLine, m_lineCount, m_lines);
        m_isTaken = true;
    }
    [[nodiscard]] bool IsTaken() const noexcept { return m_isTaken; }

    /// Does it go in at a place as it is, no piece of it being folded or expanded?
    [[nodiscard]] bool FitsAt(const xTMemStorage& store, const xTPos& pos) const;
    /// Puts it in at the caret, which must be a place that it fits at and ends behind it.
    /// @return false when there was no memory for all of it, of which the user has been told
    [[nodiscard]] bool PutBack(xTMemStorage& store);

    [[nodiscard]] CString Spelt() const;
    [[nodiscard]] bool Spells(WStrView text) const { return IsTaken() && Spells(text, m_lines, 0); }

private:
    xTHeldText() = default;
    [[nodiscard]] static std::shared_ptr<xTHeldText> LookAt(const xTMemStorage& store, const xTPos& from, const xTPos& to);
    [[nodiscard]] bool LookAtLines(const xTMemStorage& store);
    [[nodiscard]] bool GoesLineByLine(const xTMemStorage& store, const xTPos& from) const;
    [[nodiscard]] bool BringsMarks() const noexcept { return m_marksRight && m_holdsUnit; }
    [[nodiscard]] bool LookAtLine(WStrView text, bool tabsStay);
    [[nodiscard]] bool Spells(WStrView text, const CArray<xTExtString>& lines, std::int32_t first) const;
    void PutLines(xTMemStorage& store);
    void PutMarkedLines(xTMemStorage& store, std::int32_t at);
    void PutPlainLines(xTMemStorage& store, std::int32_t at);

    CString m_head;
    CArray<xTExtString> m_lines;
    CString m_tail;
    std::int32_t m_firstLine = 0;
    std::int32_t m_lineCount = 0;
    std::int32_t m_wholeLength = 0;
    std::int32_t m_longest = 0;
    std::int32_t m_emptyAtEnd = 0;
    bool m_isTaken = false;
    bool m_holdsTab = false;
    bool m_holdsMark = false;  // a `/` or a `*`
    bool m_holdsUnit = false;  // one of those or a backslash
    bool m_marksRight = false;  // the comment marks of the whole lines follow from how the first of them began
};
