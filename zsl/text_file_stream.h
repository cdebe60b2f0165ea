#pragma once

#include "framework/base/WinTypes.h"
#include "zsl/text_encoding.h"

#include <memory>
#include <string>

namespace zsl {

/// What a stream is opened for. A stream opened for writing replaces the whole file.
enum class file_stream_mode : unsigned { read = 1, write = 0x20002 };

class replacing_file;

/// A text file, open for reading or for writing. No operation raises anything but std::bad_alloc.
///
/// Reading takes the whole file at once, when the stream is made. The stream is not open when the file is missing, a
/// directory, a device, locked or unreadable, or when it is no text: a zero character, UTF-16 of an odd number of
/// bytes, more than 2^30 characters. No byte is lost: writing the text with the encoding that `get_encoding` tells
/// gives the same file again.
///
/// Writing goes to a temporary file that takes the place of the target in one step in `close`. Until then, and when
/// anything fails, the target stays as it was; so it does when the stream dies without `close`.
class text_file_stream {
public:
    /// @param path of any length; a mode other than the two, or an empty path, gives a stream that is not open
    text_file_stream(const WString& path, file_stream_mode mode, const text_encoding& encoding);
    text_file_stream(const text_file_stream&) = delete;
    text_file_stream& operator=(const text_file_stream&) = delete;
    ~text_file_stream();

    [[nodiscard]] bool is_open() const noexcept { return m_open; }

    /// Reading: the encoding that the file really has, with its byte order mark and line ends; a file of plain ASCII
    /// has the one that was asked for. Writing: the encoding that was given.
    [[nodiscard]] const text_encoding& get_encoding() const noexcept { return m_encoding; }

    /// How many line feeds the text has that was opened for reading.
    [[nodiscard]] std::size_t feeds() const noexcept;
    /// False when no text is left to be handed over.
    [[nodiscard]] bool has_text() const noexcept;
    /// Hands over the next piece of the text, as read_solid_text gives it; it ends behind a line feed or with the text,
    /// and stands until the next call. For large files, since no room is needed for all of the text.
    /// @return nothing at its end and when the stream is not open for reading
    [[nodiscard]] WStrView read_piece();
    /// Hands over the whole text, or what is left of it, once; later calls give an empty one. The line ends are plain line feeds where
    /// the file has nothing but CR LF, else they are as they stand.
    /// @return false when the stream is not open for reading
    bool read_solid_text(WString& out);

    // Writing. Cheap for single characters and short lines: the bytes are made and written in large pieces. What
    // fails is told by `flush` and `close`; from then on nothing more is written.
    void write(WStrView text);
    void write_solid_text(const WCHAR* text);  ///< up to the terminator; null counts as empty
    void write_char(WCHAR ch);

    /// Puts all that was written so far on the disk, beside the target.
    /// @return false when the bytes did not get there or a character has no place in the encoding
    [[nodiscard]] bool flush();

    /// Ends the stream. One open for writing takes the target's place now.
    /// @return true when the text is in the file, or the stream was open for reading; false when the file is as it was
    ///         before, and for a stream that is not open
    bool close();

private:
    void open_for_reading(const WString& path);
    void open_for_writing(const WString& path);
    void encode_pending(bool all);
    void write_bytes();
    void fail() noexcept;

    text_encoding m_encoding;
    file_stream_mode m_mode;
    bool m_open = false;
    bool m_started = false;  // something has been encoded, and the mark before it
    struct read_state;
    std::unique_ptr<read_state> m_reading;  // null when not open for reading
    WString m_text;          // writing: what has not been encoded yet
    std::string m_bytes;     // writing: encoded, not yet in the file
    std::unique_ptr<replacing_file> m_file;  // null when not writing or when something has failed
};

}  // namespace zsl
