#include "editing/StepText.h"

#include "diagnostics/Guarded.h"
#include "editing/HeldText.h"
#include "store/MemStor.h"

#include <algorithm>
#include <utility>

CString xTStepText::Spelt() const
{
    if (!m_lines)
        return m_string;
    CString text = m_lines->Spelt();
    text.Append(m_string);
    return text;
}

std::int32_t xTStepText::Counted(std::int32_t count) const
{
    return m_lines && count == xTHeldText::uncounted ? m_lines->Length() : count;
}

CString& xTStepText::String()
{
    if (m_lines) {
        m_string = Spelt();
        m_lines.reset();
    }
    return m_string;
}

bool xTStepText::Read(xTMemStorage& store, const xTPos& from, xTPos& to, std::int32_t& count)
{
    count = 0;
    return Guarded(false, [&] {
        m_string.Empty();
        m_lines = xTHeldText::Share(store, from, to);
        if (!m_lines)
            return store.take_text(from, to, m_string, count);
        count = m_lines->Length();
        to = std::min(to, store.end_pos());
        return true;
    });
}

void xTStepText::ShareWith(const xTStepText& other)
{
    if (m_lines || !other.m_lines || !other.m_string.IsEmpty() || !other.m_lines->Spells(m_string))
        return;
    m_lines = other.m_lines;
    m_string.Empty();
}

void xTStepText::Insert(xTMemStorage& store, const xTPos& pos, std::int32_t& count, bool rejoin)
{
    count = Counted(count);
    if (!m_lines || rejoin || !store.put_back(pos, count, *m_lines))
        store.insert_text(pos, count, String(), rejoin);
}

bool xTStepText::Delete(xTMemStorage& store, const xTPos& pos, std::int32_t& count, bool* split)
{
    std::shared_ptr<xTHeldText> lines = m_lines ? nullptr : xTHeldText::Plan(store, pos, count, m_string);
    const bool changed = store.delete_text(pos, count, split, lines.get());
    if (lines && lines->IsTaken()) {  // not where there was no memory for the deletion
        m_lines = std::move(lines);
        m_string.Empty();
    }
    if (m_lines && changed)
        count = m_lines->Length();
    return changed;
}

void xTStepText::DeleteAtCaret(xTMemStorage& store, xTPos& pos, std::int32_t& count, bool& split)
{
    store.delete_at_caret(m_string, pos, count, split, &m_lines);
}
