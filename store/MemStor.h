#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"
#include "store/Positions.h"
#include "store/StoreWindow.h"
#include "store/TabSettings.h"

#include <cstdint>

class CDC;
class CWnd;
class xTAttribTable;
struct xTHighlightHook;
namespace zsl {
class text_encoding;
}

/// The document of one control: its lines, the caret, the selection and the validity of the comment marks. It stands
/// with no window and no device context at all; `wnd` and `attribs` may be null. The operations that draw and measure
/// are built for Windows only.
///
/// Lines and columns count from 0, in characters. A failure inside an operation is reported and the operation returns
/// its default: false, 0 or a none position.
class xTMemStorage {
public:
    static constexpr std::int32_t loadLimit = 512;    ///< a longer run goes on in the next line when text is loaded
    static constexpr std::int32_t insertLimit = 462;  ///< a line does not grow past it by insertion
    static constexpr std::int32_t joinLimit = 512;    ///< two lines are not joined past it

    xTMemStorage(xTStoreWindow* wnd, const xTTabSettings* attribs) noexcept : wnd(wnd), attribs(attribs) {}
    xTMemStorage(const xTMemStorage&) = delete;
    xTMemStorage& operator=(const xTMemStorage&) = delete;

    // Text in and out
    void reset();
    /// Replaces the text. `text` is read up to its terminator; `length` says only whether there is a text, so a caller
    /// need not count it.
    bool load_text(const WCHAR* text, std::int32_t length);
    /// @param encoding an API code, 0 to 5 @return false when the file could not be written; it is then as it was
    bool save_file(const WCHAR* path, std::uint32_t encoding);
    /// The same with an encoding that carries what is known of the file, such as its line ends.
    bool save_file(const WCHAR* path, const zsl::text_encoding& encoding);
    /// Takes over the lines with their marks, the caret and the execution point; the selection stays.
    void copy_from(const xTMemStorage& other);

    // Selection
    [[nodiscard]] bool has_selection() const noexcept { return first() != xTPos::none && last() != xTPos::none; }
    [[nodiscard]] const xTPos& first() const noexcept { return selection.first; }
    [[nodiscard]] const xTPos& last() const noexcept { return selection.last; }
    void drop_selection();  ///< all three positions; the window is repainted when there was a selection
    void drop_anchor();     ///< drops the selection and puts the anchor on the caret
    /// `last` is clipped to the end of the text. @return the length of `text`
    std::int32_t selected_text(CString& text);
    /// @param b the place behind the selection; the two may come in either order
    void select_range(const xTPos& a, const xTPos& b);
    void clear_selection();  ///< both bounds; nothing at all without a selection
    /// Sets the selection marks on the copy of a line that is about to be drawn. An empty line within the selection
    /// loses its flags on the copy.
    void mark_selection(xTExtString& copy, std::int32_t line);

    // Reading and moving (positions in characters)
    [[nodiscard]] std::int32_t line_count() const noexcept { return static_cast<std::int32_t>(lines.GetSize()); }
    [[nodiscard]] std::int32_t line_length(std::int32_t line) const;  ///< 0 for a line out of range
    bool get_line(std::int32_t index, xTExtString& out) const;
    void line_tail(const xTPos& pos, xTExtString& out) const;
    void line_head(const xTPos& pos, xTExtString& out) const;
    [[nodiscard]] bool is_valid_pos(const xTPos& pos) const;
    void set_caret(const xTPos& pos);
    void set_caret_raw(const xTPos& pos) noexcept;
    void move_caret(int direction);  ///< 0 left, 1 right, 2 up, 3 down
    void line_up(xTPos& pos) const;
    void line_down(xTPos& pos) const;
    void move_lines(xTPos& pos, std::int32_t count) const;
    void to_line_end(xTPos& pos) const;
    void home_caret(const xTPos& pos);
    [[nodiscard]] xTPos end_pos() const;
    /// @param edge  stop also before the first character (column -1) @return false when no step is possible
    bool next_pos(xTPos& pos, bool edge) const;
    bool prev_pos(xTPos& pos, bool edge) const;
    /// @return the character, 10 on a line break, 0 for a line out of range
    [[nodiscard]] WCHAR char_at(const xTPos& pos) const;
    /// Both ends inclusive; `to` is clipped to the end of the text in place. @return the length of `text`
    std::int32_t get_text(const xTPos& from, xTPos& to, CString& text) const;

    // Break points, the execution point, snapshots
    int set_break_point(std::int32_t line);
    int remove_break_point(std::int32_t line);
    [[nodiscard]] bool has_break_point(std::int32_t line) const;
    void remove_all_break_points();
    [[nodiscard]] std::int32_t break_point_count() const;
    [[nodiscard]] std::int32_t break_point_line(std::int32_t index) const;
    bool set_exec_point(std::int32_t line);
    void clear_exec_point();
    void take_snapshot();
    [[nodiscard]] std::int32_t snapshot_new_line(std::int32_t old) const;
    [[nodiscard]] std::int32_t snapshot_old_line(std::int32_t line) const;

    // Block comment marks
    /// Rebuilds the marks and shows them; nothing while `comments_valid` is true.
    void rescan_comments();
    /// Looks for a comment that opens at or behind the column before `from`.
    /// @param end the place behind it; the start of the line behind the text when nothing closes it
    bool FindBlockComment(const xTPos& from, xTPos& start, xTPos& end) const;
    /// Marks from `start` up to, not including, `end`, which is cut to the end of the text.
    void MarkCommentRange(const xTPos& start, xTPos end);
    void MarkCommentLine(std::int32_t line, bool on);

    // Drawing and measuring, Windows only
    void PaintLines(const xTHighlightHook& hook, std::int32_t topLine, int x, std::int32_t firstRow, std::int32_t lastRow,
                    CWnd* window, CDC* dc, xTAttribTable* table);
    void caret_to_point(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window, CDC* dc, xTAttribTable* table,
                        std::int32_t row, int x);
    [[nodiscard]] POINT caret_pixel(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window, CDC* dc,
                                    xTAttribTable* table, int offset);
    /// The same on the window's own context. @param below  the bottom left of the caret, not its top left
    [[nodiscard]] POINT caret_pixel(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window,
                                    xTAttribTable* table, int offset, bool below);

    CArray<xTExtString> lines;
    xTPos caret;
    std::int32_t exec_line = -1;
    xTStoreWindow* wnd;
    const xTTabSettings* attribs;
    bool comments_valid = false;
    xTSelection selection;

private:
    [[nodiscard]] bool has_line(std::int32_t line) const noexcept { return line >= 0 && line < line_count(); }
    void cut_lines(WStrView text, std::int64_t count);
    void put_on_line(xTPos& pos, std::int32_t line) const;
    [[nodiscard]] CString piece_of_line(const xTPos& from, std::int32_t last) const;
    [[nodiscard]] CString joined_lines(const xTPos& from, const xTPos& to) const;
    void finish_rescan();
    [[nodiscard]] std::int32_t opening_in_line(const xTPos& at) const;
    [[nodiscard]] xTPos closing_behind(xTPos at) const;
    void mark_range(const xTPos& start, const xTPos& behind);
};
