#include "PageSetup.h"

#include "Failure.h"

#include <commdlg.h>
#include <winspool.h>

#include <string>

namespace scrivpad {

namespace {

/// Looks the default printer up; there may be none.
void TakeDefaultPrinter(PrinterChoice& printer) noexcept
{
    if (!HasPrinter())
        return;
    PRINTDLGW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;  // no dialog is shown
    ::PrintDlgW(&dialog);
    printer.mode.reset(dialog.hDevMode);
    printer.names.reset(dialog.hDevNames);
}

/// The bytes of a memory object, as long as this lives.
class Locked {
public:
    explicit Locked(const GlobalMemory& memory) noexcept
        : m_memory(memory.get()), m_bytes(m_memory ? ::GlobalLock(m_memory) : nullptr)
    {
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked()
    {
        if (m_bytes != nullptr)
            ::GlobalUnlock(m_memory);
    }
    [[nodiscard]] const void* Bytes() const noexcept { return m_bytes; }

private:
    HGLOBAL m_memory;
    void* m_bytes;
};

[[nodiscard]] PrinterContext OpenForMeasures(const PrinterChoice& printer) noexcept
{
    const Locked names(printer.names);
    const Locked mode(printer.mode);
    if (names.Bytes() == nullptr)
        return nullptr;
    const auto& offsets = *static_cast<const DEVNAMES*>(names.Bytes());
    const auto* text = static_cast<const wchar_t*>(names.Bytes());
    return PrinterContext(::CreateICW(text + offsets.wDriverOffset, text + offsets.wDeviceOffset, nullptr,
                                      static_cast<const DEVMODEW*>(mode.Bytes())));
}

}  // namespace

bool HasPrinter() noexcept
{
    DWORD needed = 0;
    DWORD count = 0;
    ::EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &needed, &count);
    return needed > 0;  // the room that a list of them would take
}

void RequirePrinter()
{
    if (!HasPrinter())
        throw Failure(L"в системе нет ни одного принтера");
}

void RequireNoDialogFault()
{
    if (const DWORD fault = ::CommDlgExtendedError(); fault != 0)
        throw Failure(L"не удалось показать окно печати (ошибка " + std::to_wstring(fault) + L")");
}

bool AskForPageSetup(HWND owner, PageSetup& setup)
{
    RequirePrinter();
    PAGESETUPDLGW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.Flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS | PSD_NOWARNING;
    dialog.ptPaperSize = {setup.settings.paper.cx, setup.settings.paper.cy};
    dialog.rtMargin = setup.settings.margins;
    dialog.hDevMode = setup.printer.mode.release();
    dialog.hDevNames = setup.printer.names.release();
    const bool confirmed = ::PageSetupDlgW(&dialog) != FALSE;
    setup.printer.mode.reset(dialog.hDevMode);
    setup.printer.names.reset(dialog.hDevNames);
    if (!confirmed) {
        RequireNoDialogFault();
        return false;
    }
    setup.settings = {{dialog.ptPaperSize.x, dialog.ptPaperSize.y}, dialog.rtMargin};
    return true;
}

PrinterContext MeasuringContext(PageSetup& setup) noexcept
{
    if (!setup.printer.names)
        TakeDefaultPrinter(setup.printer);
    return OpenForMeasures(setup.printer);
}

}  // namespace scrivpad
