#include "SettingsDialog.h"

#include "Appearance.h"
#include "Boxes.h"
#include "Highlight.h"
#include "SettingsIds.h"

#include <commctrl.h>

#include <utility>

namespace scrivpad {

namespace {

struct PageRow {
    const wchar_t* title;
    HWND (*create)(HWND, const RECT*, const edSettingsBlock*, const edHighlightHook*);
};

// In the order of SettingsDialog::Page.
constexpr PageRow pageRows[] = {
    {L"Шрифт и табуляция", edCreateFontTuneDialog},
    {L"Подсветка", edCreateHighlightTuneDialog},
};

}  // namespace

SettingsDialog::SettingsDialog(HWND owner, const edSettingsBlock& settings,
                               std::function<void(std::vector<BYTE>)> apply)
    : m_apply(std::move(apply))
{
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_TAB_CLASSES};
    ::InitCommonControlsEx(&controls);
    // The procedure stores the handle in m_window.
    ::CreateDialogParamW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(settingsTemplate), owner, Procedure,
                         reinterpret_cast<LPARAM>(this));
    if (m_window != nullptr)
        MakePages(settings);
    if (m_window == nullptr || m_pages[fontPage] == nullptr || m_pages[coloursPage] == nullptr) {
        if (m_window != nullptr)
            ::DestroyWindow(m_window);
        throw Failure(L"не удалось создать окно настройки");
    }
}

SettingsDialog::~SettingsDialog()
{
    if (m_window != nullptr)
        ::DestroyWindow(m_window);
}

void SettingsDialog::MakePages(const edSettingsBlock& settings)
{
    const HWND tabs = ::GetDlgItem(m_window, settingsTabs);
    for (std::size_t i = 0; i < std::size(pageRows); ++i) {
        std::wstring title = pageRows[i].title;
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        ::SendMessageW(tabs, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    RECT place = {};
    ::GetWindowRect(tabs, &place);
    ::MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
    ::SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
    // The sample on the page is text in the language of the .ssl files.
    const edHighlightHook hook = {HighlighterOf(L"sample.ssl"), nullptr};
    for (std::size_t i = 0; i < std::size(pageRows); ++i) {
        m_pages[i] = pageRows[i].create(m_window, &place, &settings, &hook);
        ::SetWindowPos(m_pages[i], HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ShowPage();
}

void SettingsDialog::Show(Page page) noexcept
{
    ::SendMessageW(::GetDlgItem(m_window, settingsTabs), TCM_SETCURSEL, page, 0);
    ShowPage();
    ::ShowWindow(m_window, SW_SHOW);
    ::SetForegroundWindow(m_window);
}

void SettingsDialog::ShowPage() noexcept
{
    const LRESULT current = ::SendMessageW(::GetDlgItem(m_window, settingsTabs), TCM_GETCURSEL, 0, 0);
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        ::ShowWindow(m_pages[i], static_cast<LRESULT>(i) == current ? SW_SHOW : SW_HIDE);
}

INT_PTR CALLBACK SettingsDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_INITDIALOG) {
        reinterpret_cast<SettingsDialog*>(lParam)->m_window = window;
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        return TRUE;
    }
    auto* const self = reinterpret_cast<SettingsDialog*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    // No exception may go through the system's code.
    try {
        return self->OnMessage(message, wParam, lParam);
    } catch (...) {
        return FALSE;
    }
}

INT_PTR SettingsDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(TCN_SELCHANGE))
            ShowPage();
        return FALSE;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return FALSE;
    case WM_DESTROY:
        ::SetWindowLongPtrW(m_window, DWLP_USER, 0);
        m_window = nullptr;
        m_pages = {};
        return FALSE;
    default:
        return FALSE;
    }
}

void SettingsDialog::OnCommand(int id)
{
    switch (id) {
    case IDOK:
        if (Apply(IDOK))
            ::DestroyWindow(m_window);
        break;
    case settingsApply:
        Apply(settingsApply);
        break;
    case IDCANCEL:
        ::DestroyWindow(m_window);
        break;
    default:
        break;
    }
}

// A page takes what was typed when its field is left, which Enter alone does not do. A field that is not content takes
// the focus back.
bool SettingsDialog::Apply(int button)
{
    const HWND pressed = ::GetDlgItem(m_window, button);
    if (::IsChild(m_window, ::GetFocus())) {
        ::SetFocus(pressed);
        if (::GetFocus() != pressed)
            return false;
    }
    const HWND window = m_window;
    OrTell(window, [&] { m_apply(TunedBlock()); });
    return m_window != nullptr;
}

}  // namespace scrivpad
