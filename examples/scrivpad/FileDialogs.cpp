#include "FileDialogs.h"

#include "ComPtr.h"
#include "Names.h"

#include <shobjidl.h>

#include <iterator>

namespace scrivpad {

namespace {

constexpr DWORD encodingGroup = 1;
constexpr DWORD encodingBox = 2;
constexpr const wchar_t* dialogFault = L"не удалось показать окно выбора файла";

constexpr COMDLG_FILTERSPEC filters[] = {
    {L"Исходные тексты", L"*.c;*.h;*.cpp;*.hpp;*.cc;*.hh;*.cxx;*.hxx;*.inl;*.ssl"},
    {L"Текстовые файлы", L"*.txt"},
    {L"Все файлы", L"*.*"},
};
constexpr UINT allFilesFilter = std::size(filters);  // filters count from 1

struct TaskMemory {
    void operator()(wchar_t* text) const noexcept { ::CoTaskMemFree(text); }
};

[[nodiscard]] ComPtr<IFileDialog> MakeDialog(FileDialogKind kind)
{
    const CLSID& which = kind == FileDialogKind::open ? CLSID_FileOpenDialog : CLSID_FileSaveDialog;
    return TakeCom<IFileDialog>(dialogFault, [&](IFileDialog** out) {
        return ::CoCreateInstance(which, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, reinterpret_cast<void**>(out));
    });
}

[[nodiscard]] ComPtr<IFileDialogCustomize> CustomPart(IFileDialog& dialog)
{
    return TakeCom<IFileDialogCustomize>(dialogFault, [&](IFileDialogCustomize** out) {
        return dialog.QueryInterface(IID_IFileDialogCustomize, reinterpret_cast<void**>(out));
    });
}

void AddEncodings(IFileDialogCustomize& custom, UINT32 selected)
{
    custom.StartVisualGroup(encodingGroup, L"Кодировка:");
    custom.AddComboBox(encodingBox);
    for (const NumberName& row : encodings)
        custom.AddControlItem(encodingBox, row.number, row.name);
    custom.SetSelectedControlItem(encodingBox, selected);
    custom.EndVisualGroup();
}

/// Starts the dialog in the folder of `path`, and a save with its name; what is not there is left to the system.
void ShowStartOf(IFileDialog& dialog, FileDialogKind kind, const std::wstring& path)
{
    const std::size_t folderLength = path.find_last_of(L"\\/");
    if (folderLength == std::wstring::npos)
        return;
    void* raw = nullptr;
    const std::wstring folder = path.substr(0, folderLength + 1);
    if (SUCCEEDED(::SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_IShellItem, &raw))) {
        const ComPtr<IShellItem> item(static_cast<IShellItem*>(raw));
        dialog.SetFolder(item.get());
    }
    if (kind == FileDialogKind::save)
        dialog.SetFileName(path.c_str() + folderLength + 1);
}

[[nodiscard]] std::wstring ChosenPath(IFileDialog& dialog)
{
    const auto item = TakeCom<IShellItem>(dialogFault, [&](IShellItem** out) { return dialog.GetResult(out); });
    wchar_t* raw = nullptr;
    RequireCom(dialogFault, item->GetDisplayName(SIGDN_FILESYSPATH, &raw));
    const std::unique_ptr<wchar_t, TaskMemory> path(raw);
    return path.get();
}

}  // namespace

std::optional<FileChoice> AskForFile(HWND owner, FileDialogKind kind, const FileChoice& start)
{
    const ComPtr<IFileDialog> dialog = MakeDialog(kind);
    const ComPtr<IFileDialogCustomize> custom = CustomPart(*dialog);
    AddEncodings(*custom, start.encoding);
    dialog->SetFileTypes(static_cast<UINT>(std::size(filters)), filters);
    dialog->SetFileTypeIndex(kind == FileDialogKind::open ? 1 : allFilesFilter);
    ShowStartOf(*dialog, kind, start.path);

    const HRESULT shown = dialog->Show(owner);
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED))
        return std::nullopt;
    RequireCom(dialogFault, shown);

    FileChoice choice{ChosenPath(*dialog), start.encoding};
    DWORD encoding = 0;
    if (SUCCEEDED(custom->GetSelectedControlItem(encodingBox, &encoding)))
        choice.encoding = encoding;
    return choice;
}

}  // namespace scrivpad
