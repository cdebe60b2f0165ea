#include "Splitter.h"

#include <algorithm>

namespace scrivpad {

namespace {

constexpr int leastWidth = 60;  // of either window, as far as the area allows

void Place(HWND window, int left, int top, int width, int height) noexcept
{
    ::MoveWindow(window, left, top, std::max(width, 0), std::max(height, 0), TRUE);
}

}  // namespace

void Splitter::Layout(const RECT& area, HWND left, HWND right)
{
    m_area = area;
    m_barWidth = right == nullptr ? 0 : 2 * ::GetSystemMetrics(SM_CXSIZEFRAME);
    const int height = area.bottom - area.top;
    if (right == nullptr) {
        Place(left, area.left, area.top, area.right - area.left, height);
        return;
    }
    const int bar = BarLeft();
    Place(left, area.left, area.top, bar - area.left, height);
    Place(right, bar + m_barWidth, area.top, area.right - bar - m_barWidth, height);
}

int Splitter::BarLeft() const noexcept
{
    const int room = std::max<int>(m_area.right - m_area.left - m_barWidth, 0);
    return m_area.left + static_cast<int>(room * m_share + 0.5);
}

bool Splitter::Hit(POINT point) const noexcept
{
    const int bar = BarLeft();
    return m_barWidth > 0 && point.x >= bar && point.x < bar + m_barWidth && point.y >= m_area.top &&
           point.y < m_area.bottom;
}

bool Splitter::Grip(POINT point)
{
    m_gripped = Hit(point);
    m_gripOffset = point.x - BarLeft();
    return m_gripped;
}

bool Splitter::Drag(POINT point)
{
    const int room = m_area.right - m_area.left - m_barWidth;
    if (!m_gripped || room <= 0)
        return false;
    const int margin = std::min(leastWidth, room / 2);
    const int wanted = point.x - m_gripOffset - static_cast<int>(m_area.left);
    m_share = static_cast<double>(std::clamp(wanted, margin, room - margin)) / room;
    return true;
}

}  // namespace scrivpad
