#pragma once

#include "framework/base/CArray.h"
#include "store/MyStr.h"
#include "store/Positions.h"
#include "store/StaleLines.h"
#include "store/StoreWindow.h"
#include "store/TabSettings.h"

#include <cstdint>
#include <memory>
#include <span>

class CDC;
class CWnd;
class xTAttribTable;
class xTHeldText;
struct xTHighlightHook;
struct xTPrintSetup;
struct xTReplacedText;
namespace zsl {
class text_encoding;
class text_file_stream;
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
    /// The same with the text of a file, which is cut into lines as it is decoded.
    bool load_text(zsl::text_file_stream& file);
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
    /// The same, telling a text that could not be had from an empty one. @return false when there was no memory for it
    bool take_text(const xTPos& from, xTPos& to, CString& text, std::int32_t& count) const;

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

    // Editing. A position out of range is no failure: nothing happens. A bad line index raises inside and is reported,
    // the text staying as far as the operation had come. `count` is in characters, a line break being one.
    /// Puts the caret on `pos`, not cut to its line, and inserts there.
    void insert_text(const xTPos& pos, std::int32_t& count, CString& text, bool rejoin);
    /// Inserts `count` characters of `text`; the caret ends behind them. Nothing without a window that has a handle.
    /// A line does not grow past `insertLimit`: what is left over goes on in a new line, and `text` gets the line feed.
    /// @param count  grows with each such line feed and with each tab that becomes spaces
    /// @param rejoin append the line behind the last inserted one to it: a deletion had stopped at the join limit
    void insert_at_caret(std::int32_t& count, CString& text, bool rejoin);
    /// Inserts a piece without line feeds into its line, or as a new line behind the last. `piece` loses its tabs where
    /// tabs become spaces; `count` grows by what that adds.
    void insert_piece(std::int32_t& count, const xTPos& pos, xTExtString& piece);
    void split_line(const xTPos& pos);  ///< the marks and the snapshot number stay on the first part
    /// Raises CInvalidArgException for an index out of range. Caret and selection are not looked at.
    void remove_line(std::int32_t index);
    /// Lines are joined up to `joinLimit`; where that stops a join, the break stays and characters move across it.
    /// The caret stays, except that a selection behind `pos` is shifted and the caret put behind it.
    /// @param split out, may be null: a join was stopped
    /// @param held  may be null; planned for this very text, it gets the lines that go as a whole
    /// @return false when it failed before anything was changed
    bool delete_text(const xTPos& pos, std::int32_t count, bool* split = nullptr, xTHeldText* held = nullptr);
    /// The Delete key: the selection, or the character at `pos`, which is the caret.
    /// @param text, count  get what went, `text` with a zero behind it; untouched where nothing goes
    /// @param held  may be null; gets the text where it can be held, so that `text` is the zero alone
    void delete_at_caret(CString& text, xTPos& pos, std::int32_t& count, bool& split,
                         std::shared_ptr<xTHeldText>* held = nullptr);
    /// Inserts a held text as insert_text would what it spells.
    /// @param count out: 0 when there was no memory for it; none of it has come in then
    /// @return false, with nothing done, when insert_text has to do it
    bool put_back(const xTPos& pos, std::int32_t& count, xTHeldText& text);
    void overwrite_char(const xTPos& pos, WCHAR ch);  ///< nothing on the last line of the text
    void overwrite_at_caret(WCHAR ch);
    /// Replaces the characters at `pos`, as many as `old` has, within the line and without any limit.
    /// @return false for a position that holds no character
    bool replace_at(const xTPos& pos, WStrView old, WStrView replacement);
    /// The same, for one of many replacements.
    bool replace_at(const xTPos& pos, WStrView old, WStrView replacement, const xTReplacedText& texts);
    /// Shift with an arrow key. Nothing without a window. @param direction as for move_caret
    void extend_selection(int direction);

    // The clipboard. Without a selection it is not even opened; one that another program keeps is reported.
    void copy_selection();
    void append_selection();  ///< behind the text that the clipboard holds, on a line of its own

    // Whole lines of the selection, and the letters of a range with both ends inclusive. These raise what fails in them;
    // a line of the range outside the text raises CInvalidArgException when it is reached.
    void indent_block();
    void unindent_block();
    void comment_block(bool remove);  ///< adds `//` to each line, or takes a leading one away
    void change_case(bool upper, const xTPos& from, const xTPos& to);
    /// Retypes a range on the next keyboard layout, which stays in use.
    void switch_layout(const xTPos& from, const xTPos& to);

    // Search, within single lines; an empty text is found nowhere
    /// @param down       false: the lines above, each still searched from left to right
    /// @param from_caret a match at the caret itself counts
    /// @param wrapped    set when the search went round an end of the text; otherwise left alone; may be null
    /// @return the start of the match, or none
    [[nodiscard]] xTPos find_text(const CString& what, bool down, bool whole_word, bool match_case, bool from_caret,
                                  bool* wrapped = nullptr) const;
    /// Replaces the selection if it is a match, then selects the next match downwards.
    /// @param pos  out: where text was replaced, untouched when none was
    /// @param find in: the text to find; out: as the replaced text was spelt
    void replace_and_next(xTPos& pos, CString& find, const CString& replacement, bool whole_word, bool match_case);

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

    // Printing, Windows only; the records stand in appearance/Printing.h
    class xTPrintAttr;
    struct xTPrintJob;
    /// Ends the job that runs and splits the whole text, or the selection, into the pages of a new one. A line is never
    /// split over two pages; one that is taller than its page has a page of its own. @return the number of pages
    std::int32_t prepare_printing(const xTPrintSetup& setup, const xTAttribTable& table);
    /// @param page  from 1; above the number of pages nothing is drawn, 0 is reported
    /// @return false after a fault
    bool print_page(HDC dc, std::uint32_t page);
    /// @return false when no job was running
    bool printing_over() noexcept;
    /// Draws, or only measures, as many whole lines of a range, both ends inclusive, as fit into `rect`; a first line
    /// that is too tall is taken alone.
    /// @param reached  out: the last character that was taken; untouched when none was @return true when a line was taken
    bool DrawTextRows(HDC dc, const RECT& rect, bool measureOnly, std::int32_t tabSize, const xTPos& from,
                      const xTPos& to, xTPos& reached) const;

    CArray<xTExtString> lines;
    xTPos caret;
    std::int32_t exec_line = -1;
    xTStoreWindow* wnd;
    const xTTabSettings* attribs;
    bool comments_valid = false;
    xTSelection selection;
    std::shared_ptr<xTPrintJob> print_job;  ///< null while none runs

    /// What the next rescan has to look at, whether or not `comments_valid` still stands. Every change of the text widens
    /// it, a rescan ends it. Who changes `lines` by hand after a scan has to call `note_change`, and at once.
    xTStaleLines stale;
    /// The lines from `first` to `last`, as they are numbered after the change, may need other marks; lines that came or
    /// went since the last call came or went there.
    void note_change(std::int32_t first, std::int32_t last) noexcept;
    /// True when no line can be longer than a join makes it; a text that once had such a line may count as having it.
    [[nodiscard]] bool has_short_lines() const noexcept { return !m_hadLongLine; }

private:
    [[nodiscard]] bool has_line(std::int32_t line) const noexcept { return line >= 0 && line < line_count(); }
    void cut_lines(WStrView text, xTStringSlabs& slabs);
    void finish_load(bool hasStar);
    void put_on_line(xTPos& pos, std::int32_t line) const;
    [[nodiscard]] CString piece_of_line(const xTPos& from, std::int32_t last) const;
    [[nodiscard]] CString joined_lines(const xTPos& from, const xTPos& to) const;
    void insert_pieces(std::int32_t& count, CString& text);
    void join_next_line();
    void shift_selection(const xTPos& start, std::int32_t lineDelta, std::int32_t shift);
    void delete_selection(CString& text, xTPos& pos, std::int32_t& count, bool& split,
                          std::shared_ptr<xTHeldText>* held);
    void delete_one(CString& text, const xTPos& pos, std::int32_t& count, bool& split);
    void replace_selected(xTPos& pos, CString& find, const CString& replacement, bool match_case, xTPos& replaced,
                          xTPos& behind);
    void show_match(const xTPos& match, std::int32_t length);
    void show_replaced(const xTPos& replaced, const xTPos& behind);
    [[nodiscard]] const xTTabSettings& tabs() const noexcept;
    template <typename Change>
    void change_block(Change change);
    void scan_from_top();
    bool scan_changed(std::span<const xTLineRange> changed);
    void finish_rescan(bool show);
    void split_pages(const xTPrintSetup& setup, xTPrintJob& job) const;
    [[nodiscard]] xTPos closing_behind(xTPos at) const;
    void mark_range(const xTPos& start, const xTPos& behind);

    bool m_hadLongLine = false;
};
