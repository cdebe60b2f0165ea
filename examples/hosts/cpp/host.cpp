// A host in C++17: opens the file of its first argument, colours numbers and strings, saves with Ctrl+S.
#include "scrivctl3.hpp"

#include <algorithm>

namespace {

constexpr const wchar_t* title = L"Редактор";

/// The editor asks for one line at a time; every character of it has to be overwritten by a class code.
void Colour(wchar_t* text, std::size_t length, bool)
{
    bool inString = false;
    std::transform(text, text + length, text, [&](wchar_t ch) -> wchar_t {
        const bool quote = ch == L'"';
        const bool coloured = inString || quote;
        inString ^= quote;
        return coloured ? ED_CLASS_STRING : ch >= L'0' && ch <= L'9' ? ED_CLASS_NUMBER : ED_CLASS_PLAIN;
    });
}

/// A window with one file in it.
class MainWindow {
public:
    explicit MainWindow(const std::wstring& path) : m_path(path)
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = &MainWindow::Procedure;
        windowClass.lpszClassName = L"HostInCpp";
        RegisterClassW(&windowClass);
        m_window = CreateWindowExW(0, L"HostInCpp", path.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, 0, 640, 400,
                                   nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));

        scriv::Options options;
        options.theme = scriv::Theme::Classic;
        options.highlighter = Colour;
        options.events.caret = [this](const scriv::CaretEvent& event) { m_changed = m_changed || event.textChanged; };
        m_editor = scriv::Editor(m_window, std::move(options));
    }

    /// @return false when the file cannot be opened; the editor has told the user why
    bool Show(int how)
    {
        const auto found = m_editor.LoadFile(m_path);
        m_encoding = found.value_or(m_encoding);
        if (found)
            ShowWindow(m_window, how);
        return found.has_value();
    }

    void Save()
    {
        m_changed = !m_editor.SaveFile(m_path, m_encoding);
        if (m_changed)
            MessageBoxW(m_window, L"Файл не удалось сохранить.", title, MB_ICONERROR);
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const auto* self = reinterpret_cast<const MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self && !self->Handles(message, lParam))
            return 0;
        return DefWindowProcW(window, message, wParam, lParam);
    }

    /// @return false when the system's own handling must not follow
    [[nodiscard]] bool Handles(UINT message, LPARAM lParam) const
    {
        switch (message) {
        case WM_SIZE: m_editor.Move({0, 0, LOWORD(lParam), HIWORD(lParam)}); break;
        case WM_SETFOCUS: m_editor.Focus(); break;
        case WM_CLOSE: return !m_changed || UserLeavesText();
        case WM_DESTROY: PostQuitMessage(0); break;
        }
        return true;
    }

    [[nodiscard]] bool UserLeavesText() const
    {
        return MessageBoxW(m_window, L"Закрыть, не сохранив текст?", title, MB_YESNO) == IDYES;
    }

    std::wstring m_path;
    HWND m_window = nullptr;
    scriv::Editor m_editor; // ends with the window, or with this object where that comes first
    scriv::Encoding m_encoding = scriv::Encoding::Default;
    bool m_changed = false;
};

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int show)
try {
    if (__argc < 2)
        return 1;
    MainWindow window(__wargv[1]);
    if (!window.Show(show))
        return 1;
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0; DispatchMessageW(&message)) {
        TranslateMessage(&message);
        if (message.message == WM_KEYDOWN && message.wParam == 'S' && GetKeyState(VK_CONTROL) < 0)
            window.Save();
    }
    return 0;
}
catch (const std::exception& failure) {
    MessageBoxA(nullptr, failure.what(), nullptr, MB_ICONERROR);
    return 1;
}
