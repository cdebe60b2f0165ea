#pragma once

#include "framework/base/CString.h"

#include <span>

/// One line of the text: its characters, an attribute word for each, flags of the line as a whole and the number the
/// line had at the last snapshot. The line break is never part of it. A value: work on a copy, then assign it back.
///
/// Indexes and lengths are in characters from 0. `m_attrs` is as long as `m_text`.
class xTExtString {
public:
    // Bits of an attribute word.
    static constexpr WCHAR attrBase = 0x0001;
    static constexpr WCHAR attrComment = 0x0004;
    static constexpr WCHAR attrSelected = 0x0008;  ///< only on the copy of a line that is built for drawing

    // Bits of m_flags.
    static constexpr std::uint16_t flagBreakPoint = 0x0002;
    static constexpr std::uint16_t flagHasComment = 0x0004;     ///< holds a character of a block comment
    static constexpr std::uint16_t flagExecPoint = 0x0010;
    static constexpr std::uint16_t flagStartsInside = 0x0020;   ///< begins in a block comment opened on an earlier line

    static constexpr std::uint16_t commentFlags = flagHasComment | flagStartsInside;

    static constexpr std::int32_t noSnapshot = -1;

    /// The delimiters that bound a word; the underscore, digits and letters are not among them.
    static constexpr WStrView delimiters{
        _T("~\b\f\n\r\t\v'\"\\     `/!@#$%^&*+\x2116;:-=|?<>,.{}[]()"), 43};

    xTExtString() = default;
    /// A line around a text whose buffer it shares; its attribute words are those of an untouched line.
    explicit xTExtString(CString text);
    xTExtString(const xTExtString& other) { copy_data(other); }
    xTExtString(xTExtString&&) noexcept = default;
    xTExtString& operator=(const xTExtString& other) { copy_data(other); return *this; }
    xTExtString& operator=(xTExtString&&) noexcept = default;
    ~xTExtString() = default;

    /// Assignment of lines always goes through here. A failure is reported and leaves the other fields as they were.
    void copy_data(const xTExtString& other) noexcept;
    /// Report the exception in flight, as `copy_data` and `GetAt` do. The first ends the life of a framework's one.
    static void ReportCopyFailure() noexcept;
    static void ReportReadFailure(std::int32_t ind, std::int32_t length) noexcept;
    void Clear() noexcept;

    [[nodiscard]] std::int32_t GetLength() const noexcept { return m_text.GetLength(); }
    /// @return the character, 0 for an index outside the text
    [[nodiscard]] WCHAR GetAt(std::int32_t ind) const;
    void SetAt(std::int32_t ind, WCHAR ch);
    xTExtString& AppendChar(WCHAR ch);
    xTExtString& Append(const xTExtString& other);
    void InsertChar(std::int32_t pos, WCHAR ch);
    void InsertSubString(std::int32_t pos, const xTExtString& sub);
    /// @param pos outside the text counts as 0: a delete aimed at the very end takes from the start
    /// @param count -1 means to the end of the line
    /// @return the new length, 0 after a failure
    std::int32_t DeleteSubString(std::int32_t pos, std::int32_t count) noexcept;
    /// Takes over a text that has others in the place of `count` characters of the present one. The new ones have base words,
    /// even within a comment; no flag changes. What fails leaves the line as it was.
    /// @param pos  in the line; `count` is cut to it
    /// @param text in: the whole line as it will be; out: as it was
    void ReplaceRun(std::int32_t pos, std::int32_t count, CString& text);
    /// @param spaces what each tab becomes; with a tab in it nothing is replaced
    /// @return how many tabs were replaced: all of them, or 0 when there was no memory
    std::int32_t ReplaceTabs(WStrView spaces);
    /// Head and tail of the line, cut to it. The head keeps all flags, the tail only that it holds a comment; neither
    /// has a snapshot number.
    [[nodiscard]] xTExtString LeftPart(std::int32_t count) const;
    [[nodiscard]] xTExtString RightPart(std::int32_t from) const;

    /// Would a character put at `pos` lie in a block comment?
    [[nodiscard]] bool IsInComment(std::int32_t pos) const;
    [[nodiscard]] bool IsCommentAt(std::int32_t ind) const;
    void MarkSelected(std::int32_t ind);
    void UnmarkSelected(std::int32_t ind);
    [[nodiscard]] bool IsSelected(std::int32_t ind) const;
    void UnmarkAllSelected();
    /// Marks the characters from `from` up to, not including, `to`; both are cut to the line.
    void MarkSelectedRun(std::int32_t from, std::int32_t to);
    void MarkAllComment();
    void UnmarkAllComment();
    /// Marks the characters from `from` up to, not including, `to`, both cut to the line, and says of the whole line
    /// that it holds a comment and whether it begins inside one.
    void MarkCommentRun(std::int32_t from, std::int32_t to, bool startsInside);
    /// Adds bit 16 to each word of `mask` whose character lies in a block comment.
    /// @return true when there was at least one
    bool CommentMask(std::uint32_t* mask, std::int32_t count) const;

    /// Where the word-wise caret keys stop; `pos` may lie outside the line.
    [[nodiscard]] std::int32_t NextWordStop(std::int32_t pos, bool forward) const;
    /// The half-open span of the word at `pos`; a delimiter is a word of one character.
    bool WordBounds(std::int32_t pos, std::int32_t* first, std::int32_t* last) const;
    [[nodiscard]] static bool IsWordChar(WCHAR ch) noexcept;
    /// @return the column of `sub` at or behind `start` that is not inside a double-quoted string, or -1
    [[nodiscard]] std::int32_t FindInCode(WStrView sub, std::int32_t start) const;
    /// @return the column of "//" when only blanks stand before it, or -1
    [[nodiscard]] std::int32_t FindLeadingLineComment() const;

    CString m_text;
    CString m_attrs;
    std::uint16_t m_flags = 0;
    /// Did the line begin inside a comment when the text was last scanned? The flag does not tell: a second comment on
    /// the line takes it away. Only a scan reads this; it stands where it costs a record no room.
    bool m_beganInside = false;
    std::int32_t m_snapshotLine = noSnapshot;
};
