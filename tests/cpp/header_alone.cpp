#include "scrivctl3.hpp"
#include "scrivctl3.hpp"

// The templates of the header are compiled where they are used.
scriv::Editor Make(HWND parent, int captured);
scriv::Editor Make(HWND parent, int captured)
{
    scriv::Options options;
    options.highlighter = [captured](wchar_t* text, std::size_t length, bool insideComment) {
        std::wmemset(text, static_cast<wchar_t>(insideComment ? ED_CLASS_COMMENT : captured), length);
    };
    options.events.caret = [](const scriv::CaretEvent&) {};
    static_cast<void>(scriv::CreateFontPage(parent, options.settings, options.highlighter));
    return scriv::Editor(parent, std::move(options));
}
static_assert(std::is_nothrow_move_constructible_v<scriv::Editor> && std::is_nothrow_move_assignable_v<scriv::Editor>);
static_assert(!std::is_copy_constructible_v<scriv::Editor> && !std::is_copy_assignable_v<scriv::Editor>);
static_assert(!std::is_copy_constructible_v<scriv::PrintJob>);
static_assert(!std::is_constructible_v<scriv::Highlighter, int>);
static_assert(sizeof(scriv::Highlighter) <= 3 * sizeof(void*));
