#include "editing/SelectionExtend.h"

#include "store/MemStor.h"

#include <algorithm>

// One table for the sixteen cases of Shift with an arrow key: a direction, where the caret stands to the selection, and
// what is done. Below C is the caret, S and E are the first and the last selected character, and P is the place before
// the caret as it then stands.

namespace {

enum xTDirection : int { left, right, up, down };

class xTExtension {
public:
    xTExtension(xTMemStorage& store, int direction) : m_store(store), m_direction(direction) {}

    // Where the caret stands
    [[nodiscard]] bool Nowhere() const { return !m_store.has_selection(); }
    [[nodiscard]] bool AtOrBeforeStart() const { return C() <= S(); }
    [[nodiscard]] bool Inside() const { return S() < C() && C() < E(); }
    [[nodiscard]] bool AtOrBehindEnd() const { return C() >= E(); }
    [[nodiscard]] bool BehindBoth() const { return S() < C() && C() >= E(); }

    // What is done
    void StartBackwards()
    {
        SetE(P());
        Move();
        SetS(C());
    }
    void StartForwards()
    {
        SetS(C());
        Move();
        SetE(P());
    }
    void GrowBackwards()
    {
        Move();
        SetS(C());
    }
    void GrowForwards()
    {
        Move();
        if (AtOrBehindEnd())
            SetE(P());
    }
    void LeftInside()
    {
        Move();
        if (Inside())
            SetE(P());
        ClearUnlessBehindStart();
    }
    void LeftFromEnd()
    {
        Move();
        if (AtOrBehindEnd())
            SetE(P());
        if (Inside())
            SetE(P());
        ClearUnlessBehindStart();
    }
    void RightFromStart()
    {
        Move();
        if (AtOrBehindEnd())
            Clear();
        else
            SetS(C());
    }
    void RightInside()
    {
        Move();
        if (AtOrBehindEnd())
            Clear();
        else if (Inside())
            SetS(C());
    }
    void UpFromEnd()
    {
        Move();
        if (AtOrBehindEnd())
            SetE(P());
        if (Inside())
            SetE(P());
        if (!(S() < C())) {  // the caret has passed the start: the selection turns over
            SetE({S().line, S().col - 1});
            SetS(C());
        }
    }
    void DownInside()
    {
        Move();
        if (AtOrBehindEnd())
            Clear();
        else if (Inside())
            SetS(P());  // not C, as to the right: the two differ, as required
    }
    void DownFromStart()
    {
        Move();
        if (C() < E()) {
            SetS(C());
        } else {  // the caret has passed the end: the selection turns over
            SetS({E().line, E().col + 1});
            SetE({C().line, C().col - 1});
        }
    }

private:
    [[nodiscard]] const xTPos& C() const { return m_store.caret; }
    [[nodiscard]] const xTPos& S() const { return m_store.first(); }
    [[nodiscard]] const xTPos& E() const { return m_store.last(); }
    [[nodiscard]] xTPos P() const
    {
        xTPos before = m_store.caret;
        m_store.prev_pos(before, true);
        return before;
    }
    void SetS(const xTPos& pos) { m_store.selection.first = pos; }
    void SetE(const xTPos& pos) { m_store.selection.last = pos; }
    void Clear() { m_store.selection.first = m_store.selection.last = xTPos::none; }
    void ClearUnlessBehindStart()
    {
        if (!(S() < C()))
            Clear();
    }

    void Move()
    {
        // Down from the last line goes to the end of the text and does not stay in its column.
        if (m_direction == down && C().line == m_store.line_count() - 1)
            m_store.set_caret(m_store.end_pos());
        else
            m_store.move_caret(m_direction);
    }

    xTMemStorage& m_store;
    int m_direction;
};

struct xTExtensionRow {
    int direction;
    bool (xTExtension::*state)() const;
    void (xTExtension::*action)();
};

// Tried from the top.
constexpr xTExtensionRow extensionRows[] = {
    {left, &xTExtension::Nowhere, &xTExtension::StartBackwards},
    {left, &xTExtension::Inside, &xTExtension::LeftInside},
    {left, &xTExtension::BehindBoth, &xTExtension::LeftFromEnd},
    {left, &xTExtension::AtOrBeforeStart, &xTExtension::GrowBackwards},
    {right, &xTExtension::Nowhere, &xTExtension::StartForwards},
    {right, &xTExtension::AtOrBeforeStart, &xTExtension::RightFromStart},
    {right, &xTExtension::Inside, &xTExtension::RightInside},
    {right, &xTExtension::AtOrBehindEnd, &xTExtension::GrowForwards},
    {up, &xTExtension::Nowhere, &xTExtension::StartBackwards},
    {up, &xTExtension::AtOrBehindEnd, &xTExtension::UpFromEnd},
    {up, &xTExtension::AtOrBeforeStart, &xTExtension::GrowBackwards},
    {up, &xTExtension::Inside, &xTExtension::LeftInside},
    {down, &xTExtension::Nowhere, &xTExtension::StartForwards},
    {down, &xTExtension::AtOrBehindEnd, &xTExtension::GrowForwards},
    {down, &xTExtension::Inside, &xTExtension::DownInside},
    {down, &xTExtension::AtOrBeforeStart, &xTExtension::DownFromStart},
};

}  // namespace

void ExtendSelection(xTMemStorage& store, int direction)
{
    xTExtension extension(store, direction);
    const auto fits = [&](const xTExtensionRow& row) { return row.direction == direction && (extension.*row.state)(); };
    if (const auto* row = std::ranges::find_if(extensionRows, fits); row != std::end(extensionRows))
        (extension.*row->action)();
    // The view follows the caret in the middle of a move, and painting an empty line then takes a selection away that has
    // only one bound yet. The bound that is set behind it must not stay alone: Delete would take it for its place.
    if (!store.has_selection())
        store.selection.first = store.selection.last = xTPos::none;
}
