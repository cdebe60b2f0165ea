#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"
#include "store/Positions.h"

#include <limits>
#include <memory>
#include <optional>

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
    /// Is it all of the store's text? Such a one goes as it is and is looked at only when it is wanted back.
    [[nodiscard]] bool IsWholeText() const noexcept { return m_isWholeText; }
    /// The characters of the whole lines, each with its break, and those of the text.
    [[nodiscard]] std::int32_t WholeLength() const { return Facts().wholeLength; }
    [[nodiscard]] std::int32_t Length() const { return m_head.GetLength() + 1 + WholeLength() + m_tail.GetLength(); }
    /// The length where that is known.
    [[nodiscard]] std::int32_t CountedLength() const { return m_facts ? Length() : uncounted; }
    static constexpr std::int32_t uncounted = std::numeric_limits<std::int32_t>::max();
    /// Of the whole lines: how many empty ones stand at their end, and whether there is a `/` or a `*`.
    [[nodiscard]] std::int32_t EmptyAtEnd() const { return Facts().emptyAtEnd; }
    [[nodiscard]] bool HoldsMark() const { return Facts().holdsMark; }

    /// Moves the whole lines in here from where they were looked at. It cannot fail: the room is there since then.
    void TakeLines(CArray<xTExtString>& lines)
    {
        lines.TakeOut(m_firstLine - m_ahead, m_lineCount + m_ahead, m_lines);
        m_isTaken = true;
    }
    [[nodiscard]] bool IsTaken() const noexcept { return m_isTaken; }

    /// Does it go in at a place as it is, no piece of it being folded or expanded?
    [[nodiscard]] bool FitsAt(const xTMemStorage& store, const xTPos& pos) const;
    /// Puts it in at the caret, which must be a place that it fits at and ends behind it.
    /// @return false when there was no memory for all of it, of which the user has been told
    [[nodiscard]] bool PutBack(xTMemStorage& store);

    [[nodiscard]] CString Spelt() const;
    [[nodiscard]] bool Spells(WStrView text) const { return IsTaken() && Spells(text, m_lines, m_ahead); }

private:
    xTHeldText() = default;
    // What a pass over the lines tells.
    struct xTFacts {
        std::int32_t wholeLength = 0;
        std::int32_t longest = 0;
        std::int32_t emptyAtEnd = 0;
        bool isParted = false;   // a string of it would be read otherwise, or be too long
        bool holdsTab = false;
        bool holdsMark = false;  // a `/` or a `*`
        bool holdsUnit = false;  // one of those or a backslash
        bool hasAllWords = true;
        void LookAt(WStrView text);
    };
    [[nodiscard]] static std::shared_ptr<xTHeldText> Ends(const xTMemStorage& store, const xTPos& from,
                                                          const xTPos& last);
    [[nodiscard]] static std::shared_ptr<xTHeldText> LookAt(const xTMemStorage& store, const xTPos& from, const xTPos& to);
    [[nodiscard]] static std::shared_ptr<xTHeldText> PlanWholeText(const xTMemStorage& store);
    [[nodiscard]] static std::shared_ptr<xTHeldText> PlanLines(const xTMemStorage& store, const xTPos& from,
                                                               const xTPos& to);
    [[nodiscard]] const xTFacts& Facts() const;
    [[nodiscard]] xTFacts LookAtLines(const CArray<xTExtString>& lines, std::int32_t first) const;
    [[nodiscard]] bool GoesLineByLine(const xTMemStorage& store, const xTPos& from) const;
    [[nodiscard]] bool BringsMarks() const { return m_marksRight && Facts().hasAllWords && Facts().holdsUnit; }
    [[nodiscard]] bool Spells(WStrView text, const CArray<xTExtString>& lines, std::int32_t first) const;
    void PutLines(xTMemStorage& store);
    void PutMarkedLines(xTMemStorage& store, std::int32_t at);
    void PutPlainLines(xTMemStorage& store, std::int32_t at);

    CString m_head;
    CArray<xTExtString> m_lines;  // the first `m_ahead` of them are of no use
    CString m_tail;
    std::int32_t m_firstLine = 0;
    std::int32_t m_lineCount = 0;
    std::int32_t m_ahead = 0;
    bool m_isWholeText = false;
    bool m_isTaken = false;
    bool m_marksRight = false;  // the comment marks of the whole lines follow from how the first of them began
    mutable std::optional<xTFacts> m_facts;
};
