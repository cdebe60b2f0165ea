#include "editing/SearchMessages.h"

#include "framework/base/Platform.h"
#include "store/StoreWindow.h"

#include <string>

namespace {

constexpr unsigned replacedId = 118;
constexpr unsigned nothingFoundId = 119;

void Show(const xTStoreWindow* window, const CString& text)
{
    PlatformNotice(window ? window->Handle() : nullptr, text.c_str(), xTBoxIcon::information);
}

}  // namespace

void ShowNothingFound(const xTStoreWindow* window)
{
    Show(window, PlatformString(nothingFoundId));
}

void ShowReplaceCount(const xTStoreWindow* window, std::int32_t count)
{
    if (count < 1) {
        ShowNothingFound(window);
        return;
    }
    const std::string digits = std::to_string(count);
    CString text = PlatformString(replacedId);
    text.Replace(_T("%d"), WString(digits.begin(), digits.end()));
    Show(window, text);
}
