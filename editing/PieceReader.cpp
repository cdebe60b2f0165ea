#include "editing/PieceReader.h"

#include "store/WideScan.h"

#include <utility>

xTPieceReader::xTPieceReader(const CString& text, std::int32_t count) noexcept
    : m_source(text), m_limit(count), m_end(static_cast<std::int64_t>(FindUnit(m_source, 0, 0)))
{}

bool xTPieceReader::Next() noexcept
{
    if (m_offset >= m_limit)
        return false;
    if (m_offset >= m_runEnd) {
        const auto from = static_cast<std::size_t>(std::min(m_offset, m_end));
        m_runEnd = static_cast<std::int64_t>(FindUnit(m_source, _T('\n'), from));
    }
    m_start = m_offset;
    m_stop = std::max(m_start, std::min({m_runEnd, m_limit, m_end}));
    m_broken = m_stop == m_runEnd && m_stop < m_end;
    m_offset = m_stop + 1;
    return true;
}

WStrView xTPieceReader::Piece() const noexcept
{
    return m_source.view().substr(static_cast<std::size_t>(std::min(m_start, m_end)),
                                  static_cast<std::size_t>(m_stop - m_start));
}

void xTPieceReader::Fold(std::int32_t room)
{
    m_folds.push_back(m_start + room);
    m_stop = m_offset = m_start + room;
    m_broken = true;
}

std::int64_t xTPieceReader::FeedsAhead() const noexcept
{
    const WStrView text = m_source.view().substr(0, static_cast<std::size_t>(m_end));
    return static_cast<std::int64_t>(CountUnit(text.substr(static_cast<std::size_t>(std::min(m_offset, m_end))), _T('\n')));
}

void xTPieceReader::WriteFolds(CString& text) const
{
    if (m_folds.empty())
        return;
    CString folded(_T('\n'), m_source.GetLength() + static_cast<std::int32_t>(m_folds.size()));
    WCHAR* to = folded.OwnBuffer();
    const WStrView from = m_source;
    std::size_t done = 0;
    for (const std::int64_t fold : m_folds) {
        const auto behind = static_cast<std::size_t>(fold);
        to = std::ranges::copy(from.substr(done, behind - done), to).out + 1;  // its line feed stands there already
        done = behind;
    }
    std::ranges::copy(from.substr(done), to);
    text = std::move(folded);
}
