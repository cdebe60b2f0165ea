#include "editing/xTFindReplace.h"

#include "diagnostics/Guarded.h"
#include "editing/LastSearch.h"
#include "editing/SearchMessages.h"
#include "editing/SearchRequest.h"
#include "editing/operstack.h"
#include "framework/win/CFindDialog.h"
#include "include/scrivctl3.h"
#include "store/MemStor.h"

namespace {

static_assert(xTSearchRequest::down == FR_DOWN && xTSearchRequest::wholeWord == FR_WHOLEWORD &&
              xTSearchRequest::matchCase == FR_MATCHCASE && xTSearchRequest::findNext == FR_FINDNEXT &&
              xTSearchRequest::replace == FR_REPLACE && xTSearchRequest::replaceAll == FR_REPLACEALL &&
              xTSearchRequest::dialogTerm == FR_DIALOGTERM);

xTSearchRecord RecordOf(const xTSearchRequest& request, const CString& text)
{
    return {text, request.Has(xTSearchRequest::down), request.Has(xTSearchRequest::wholeWord),
            request.Has(xTSearchRequest::matchCase)};
}

DWORD FlagsOf(const xTSearchRecord& record) noexcept
{
    return (record.down ? FR_DOWN : 0u) | (record.whole_word ? FR_WHOLEWORD : 0u) |
           (record.match_case ? FR_MATCHCASE : 0u);
}

// The word that `col` stands in or, on a delimiter, that one character.
WStrView WordAt(WStrView line, std::size_t col)
{
    std::size_t a = col;
    std::size_t b = col;
    if (xTExtString::IsWordChar(line[col])) {
        while (a > 0 && xTExtString::IsWordChar(line[a - 1]))
            --a;
        while (b < line.size() && xTExtString::IsWordChar(line[b]))
            ++b;
    }
    return line.substr(a, a == b ? 1 : b - a);
}

}  // namespace

/// What a new dialog shows.
struct xTFindReplace::xTStart {
    CString text;
    DWORD flags;
};

xTFindReplace::~xTFindReplace()
{
    if (dialog)
        dialog->Destroy();
}

void xTFindReplace::show_find()
{
    show(false);
}

void xTFindReplace::show_replace()
{
    show(true);
}

void xTFindReplace::show(bool replace)
{
    Guarded([&] {
        if (dialog || !owner_lives())
            return;
        const xTStart start = prepare_dialog();
        const auto kind = replace ? CFindDialog::xTKind::replace : CFindDialog::xTKind::find;
        CFindDialog::Open(dialog, kind, owner->Handle(), start.text.c_str(), start.flags);
    });
}

xTFindReplace::xTStart xTFindReplace::prepare_dialog() const
{
    const xTSearchRecord last = LastSearch();
    const CString word = word_at_caret();
    return {word.IsEmpty() ? last.text : word, FlagsOf(last)};
}

CString xTFindReplace::word_at_caret() const
{
    xTMemStorage& store = *owner->Store();
    if (store.has_selection()) {
        CString selected;
        store.selected_text(selected);
        if (!selected.IsEmpty() && selected.view().find(L'\n') == WStrView::npos)
            return selected;
    }
    xTExtString line;
    const std::int32_t col = store.caret.col;
    if (!store.get_line(store.caret.line, line) || col < 0 || col >= line.GetLength())
        return {};
    return WordAt(line.m_text.view(), static_cast<std::size_t>(col));
}

bool xTFindReplace::find_next()
{
    return Guarded(false, [&] {
        const xTSearchRecord last = LastSearch();
        if (last.text.IsEmpty())
            return false;
        do_find(last);
        return true;
    });
}

// With several flags the first of this order counts. The dialog may go while its request is being served, so all that
// it says is read before.
LRESULT xTFindReplace::on_find_message(LPARAM lParam)
{
    Guarded([&] {
        CFindDialog* sender = CFindDialog::GetNotifier(lParam);
        if (!sender || !owner_lives())
            return;
        const xTSearchRequest request{sender->FindString(), sender->ReplaceString(), sender->Flags()};
        if (request.Has(xTSearchRequest::findNext)) {
            const xTSearchRecord record = RecordOf(request, request.find_text);
            SaveLastSearch(record);
            do_find(record);
        } else if (request.Has(xTSearchRequest::replaceAll) || request.Has(xTSearchRequest::replace)) {
            SaveLastSearch(RecordOf(request, request.find_text));
            owner->Operations()->add_replace(request);
        } else if (request.Has(xTSearchRequest::dialogTerm)) {
            SaveLastSearch(RecordOf(request, last_find_text()));
            if (sender == dialog)
                dialog->Forget();
        }
    });
    return 0;
}

void xTFindReplace::do_find(const xTSearchRecord& record)
{
    Guarded([&] {
        bool wrapped = false;
        if (!owner_lives())
            return;
        const xTPos match = owner->Store()->find_text(record.text, record.down, record.whole_word, record.match_case,
                                                      false, &wrapped);
        if (wrapped && !owner->ConfirmWrap())
            return;
        const xTPos end{match.line, match.col + record.text.GetLength()};
        if (match.col == -1) {
            ShowNothingFound(owner);
        } else {
            owner->MoveCaretTo(match.line, match.col, false, true, false);
            owner->EnsureCaretVisible();
            if (owner_lives())
                owner->Store()->select_range(match, end);
        }
        if (owner_lives()) {
            owner->Invalidate();
            owner->UpdateNow();
        }
    });
}

CString xTFindReplace::last_find_text()
{
    return LastSearch().text;
}

bool xTFindReplace::confirm_wrap() const
{
    const HWND parent = owner ? ::GetParent(owner->Handle()) : nullptr;
    if (!::IsWindow(parent))
        return false;
    const CString text = last_find_text();  // the host reads it during the call
    const HWND asking = dialog ? dialog->GetSafeHwnd() : nullptr;
    return ::SendMessageW(parent, ED_NOTIFY_FIND, reinterpret_cast<WPARAM>(asking),
                          reinterpret_cast<LPARAM>(text.c_str())) != 0;
}

// A host may destroy the control whenever it is called: when it is asked, and when the view is painted.
bool xTFindReplace::owner_lives() const
{
    return owner && owner->Handle() && owner->Store() && owner->Operations();
}
