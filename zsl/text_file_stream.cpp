#include "zsl/text_file_stream.h"

#include "zsl/byte_order_mark.h"
#include "zsl/line_ends.h"
#include "zsl/replacing_file.h"
#include "zsl/text_encoder.h"
#include "zsl/text_pieces.h"
#include "zsl/whole_file.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zsl {
namespace {

constexpr std::size_t pieceLength = 16384;      // characters encoded at once
constexpr std::size_t bytesAtOnce = 256 * 1024;  // written to the file at once

constexpr bool is_high_surrogate(WCHAR ch) noexcept { return (ch & 0xfc00) == 0xd800; }

// A first character that would be taken for a mark when the file is read.
constexpr bool looks_like_a_mark(WCHAR ch, const text_encoding& encoding) noexcept
{
    return (ch == 0xfeff && encoding.stored_as() >= E_CharSet::utf8) || (ch == 0xfffe && encoding.is_utf16());
}

}  // namespace

struct text_file_stream::read_state {
    whole_file file;  // what the pieces are made of
    text_pieces pieces;
};

text_file_stream::text_file_stream(const WString& path, file_stream_mode mode, const text_encoding& encoding)
    : m_encoding(encoding), m_mode(mode)
{
    if (mode == file_stream_mode::read)
        open_for_reading(path);
    else if (mode == file_stream_mode::write)
        open_for_writing(path);
}

text_file_stream::~text_file_stream() = default;

void text_file_stream::open_for_reading(const WString& path)
{
    constexpr std::int64_t mostBytesEach = 3;  // no character set needs more for one 16-bit character
    constexpr std::int64_t longest = static_cast<std::int64_t>(maxTextLength) * mostBytesEach + mostBytesEach;
    xTFile file;
    if (path.empty() || path.find(WCHAR{}) != path.npos || !file.OpenToRead(path))
        return;
    whole_file whole = read_whole(file, longest);
    if (!whole.read)
        return;
    std::optional<text_pieces> pieces = text_pieces::of(whole.bytes(), m_encoding);
    if (!pieces)
        return;
    m_encoding = pieces->encoding();
    m_reading.reset(new read_state{std::move(whole), std::move(*pieces)});
    m_open = true;
}

void text_file_stream::open_for_writing(const WString& path)
{
    auto file = std::make_unique<replacing_file>(path);
    m_open = file->is_open();
    if (m_open)
        m_file = std::move(file);
}

bool text_file_stream::read_solid_text(WString& out)
{
    out.clear();
    if (!m_reading)
        return false;
    out = m_reading->pieces.rest();
    return true;
}

std::size_t text_file_stream::feeds() const noexcept
{
    return m_reading ? m_reading->pieces.feeds() : 0;
}

bool text_file_stream::has_text() const noexcept
{
    return m_reading && !m_reading->pieces.at_end();
}

WStrView text_file_stream::read_piece()
{
    return m_reading ? m_reading->pieces.next() : WStrView();
}

void text_file_stream::write(WStrView text)
{
    while (!text.empty() && m_file) {
        const WStrView piece = text.substr(0, pieceLength);
        if (m_encoding.has_crlf())
            append_crlf(piece, m_text);
        else
            m_text.append(piece);
        text.remove_prefix(piece.size());
        if (m_text.size() >= pieceLength)
            encode_pending(false);
    }
}

void text_file_stream::write_solid_text(const WCHAR* text)
{
    if (text)
        write(text);
}

void text_file_stream::write_char(WCHAR ch)
{
    write({&ch, 1});
}

void text_file_stream::encode_pending(bool all)
{
    // A pair may come in two pieces: its first half waits for the second.
    const bool half = !all && !m_text.empty() && is_high_surrogate(m_text.back());
    const WStrView text(m_text.data(), m_text.size() - half);
    if (!text.empty() && !std::exchange(m_started, true)
        && (m_encoding.has_mark() || looks_like_a_mark(text[0], m_encoding)))
        m_bytes += mark_of(m_encoding.stored_as());
    if (!append_encoded(text, m_encoding.stored_as(), m_bytes))
        return fail();
    m_text.erase(0, text.size());
    if (m_bytes.size() >= bytesAtOnce || all)
        write_bytes();
}

void text_file_stream::write_bytes()
{
    if (!m_file->write(m_bytes))
        return fail();
    m_bytes.clear();
}

// The target stays as it is and the temporary file goes at once.
void text_file_stream::fail() noexcept
{
    m_file.reset();
    m_text.clear();
    m_bytes.clear();
}

bool text_file_stream::flush()
{
    if (m_file)
        encode_pending(false);
    if (m_file && !m_bytes.empty())
        write_bytes();
    if (m_file && !m_file->flush())
        fail();
    return m_file != nullptr;
}

bool text_file_stream::close()
{
    const bool wasOpen = std::exchange(m_open, false);
    if (m_mode != file_stream_mode::write) {
        m_reading.reset();
        return wasOpen;
    }
    if (m_file && !m_started && m_text.empty() && m_encoding.found_mark())
        m_bytes += mark_of(m_encoding.stored_as());
    if (m_file)
        encode_pending(true);
    const bool done = m_file && m_file->commit();
    m_file.reset();
    return done;
}

}  // namespace zsl
