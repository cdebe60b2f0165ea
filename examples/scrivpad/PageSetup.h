#pragma once

#include "PageLayout.h"

#include <memory>
#include <type_traits>

namespace scrivpad {

struct FreeGlobalMemory {
    void operator()(void* memory) const noexcept { ::GlobalFree(memory); }
};
using GlobalMemory = std::unique_ptr<void, FreeGlobalMemory>;

struct DeletePrinterContext {
    void operator()(HDC dc) const noexcept { ::DeleteDC(dc); }
};
using PrinterContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeletePrinterContext>;

/// A printer as the system's dialogs hand it on; empty: the default one.
struct PrinterChoice {
    GlobalMemory mode;
    GlobalMemory names;
};

/// What the user has set up for printing.
struct PageSetup {
    PageSettings settings;
    PrinterChoice printer;
};

/// Lets the user choose paper and margins. Throws a Failure when there is no dialog to be had.
/// @return false when the user gave up
bool AskForPageSetup(HWND owner, PageSetup& setup);

/// @return what text is measured on for that printer; null when the system has none
[[nodiscard]] PrinterContext MeasuringContext(PageSetup& setup) noexcept;

[[nodiscard]] bool HasPrinter() noexcept;

/// Throws a Failure where the system has no printer: its printing dialogs would say so in words of their own.
void RequirePrinter();

/// Throws a Failure that says why a printing dialog did not come up, unless the user has closed it.
void RequireNoDialogFault();

}  // namespace scrivpad
