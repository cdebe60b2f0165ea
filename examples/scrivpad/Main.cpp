// A host of the editor control: opens, shows, edits and saves one text.
#include "Automation.h"
#include "Console.h"
#include "Failure.h"
#include "MainWindow.h"
#include "MessageLoop.h"

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <exception>
#include <memory>
#include <vector>

namespace scrivpad {

namespace {

enum ExitStatus { done = 0, stepFailed = 1, badCommandLine = 2 };

[[nodiscard]] std::vector<std::wstring> Arguments()
{
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> all(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                             ::LocalFree);
    return all && count > 1 ? std::vector<std::wstring>(all.get() + 1, all.get() + count) : std::vector<std::wstring>();
}

int Run(const Options& options, int showCommand)
{
    // A script gets the same look on every machine, unless it names a file of settings.
    std::wstring settings = options.settings.empty() ? std::wstring() : WholePath(options.settings);
    if (settings.empty() && !options.Automated())
        settings = SettingsFileOfUser();
    MainWindow window(options.theme.value_or(0), settings);
    window.Show(showCommand);
    if (options.Automated())
        RunSteps(window, options);
    else if (!options.file.empty())
        window.OpenOrTell(options.file);
    return options.exit ? done : RunMessageLoop(window);
}

int Start(int showCommand)
{
    const ParsedCommandLine line = ParseCommandLine(Arguments());
    if (!line.error.empty()) {
        WriteError(L"scrivpad: " + line.error + L"\n" + UsageText());
        return badCommandLine;
    }
    if (line.options.help) {
        WriteOutput(UsageText());
        return done;
    }
    try {
        return Run(line.options, showCommand);
    } catch (const Failure& failure) {
        WriteError(L"scrivpad: " + failure.message + L"\n");
    } catch (const std::exception&) {
        WriteError(L"scrivpad: не хватает памяти\n");
    }
    return stepFailed;
}

}  // namespace

}  // namespace scrivpad

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int showCommand)
{
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&controls);
    const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    const int status = scrivpad::Start(showCommand);
    if (SUCCEEDED(com))
        ::CoUninitialize();
    return status;
}
