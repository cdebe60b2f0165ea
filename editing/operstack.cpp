#include "editing/operstack.h"

#include "diagnostics/Guarded.h"
#include "editing/ClipboardText.h"
#include "editing/SearchRequest.h"
#include "framework/base/Exceptions.h"
#include "framework/base/Platform.h"
#include "store/StoreWindow.h"

#include <new>

namespace {

constexpr int keyShift = 0x10;
constexpr int keyControl = 0x11;
constexpr int keyInsert = 45;
constexpr int keyDelete = 46;

using xTSteps = std::list<xTOperation>;

template <typename Request>
xTSteps Built(const Request& request, xTStoreWindow* window, xTMemStorage* store)
{
    xTSteps step;
    try {
        step.emplace_front(request, window, store);
    } catch (const std::bad_alloc&) {
        ThrowMemoryException();  // as what the framework itself raises for want of memory
    }
    return step;
}

void DropTail(xTSteps& steps, std::int32_t capacity)
{
    if (!steps.empty() && steps.size() == static_cast<std::size_t>(capacity))
        steps.pop_back();
}

// Takes the head of a list.
xTSteps TakeHead(xTSteps& steps)
{
    xTSteps head;
    head.splice(head.begin(), steps, steps.begin());
    return head;
}

}  // namespace

// The fixed order of every `add_` operation. The redo list goes before anything is applied and whatever comes of it:
// even an action that changes nothing ends the chain.
template <typename Request>
void xTOperStack::Run(const Request& request)
{
    xTSteps step = Built(request, window, store);
    clear_redo();
    if (step.front().apply())
        push_undo(step);
}

bool xTOperStack::push_undo(xTSteps& step)
{
    if (step.empty() || step.front().count == 0)
        return false;
    DropTail(undoList, capacity);
    undoList.splice(undoList.begin(), step);
    return true;
}

void xTOperStack::Notify() const
{
    if (window)
        window->NotifyHost(true, 0);
}

void xTOperStack::add_char(std::uint32_t key, bool overwrite)
{
    Guarded([&] { Run(xTOperation::xTTyped{key, overwrite}); });
}

void xTOperStack::add_key(std::uint32_t key)
{
    Guarded([&] {
        const bool shift = PlatformKeyDown(keyShift);
        const bool insert = PlatformKeyDown(keyInsert);
        const bool pasteKeys = shift && insert;
        const bool copyKeys = PlatformKeyDown(keyControl) && insert;
        const bool cutKeys = shift && PlatformKeyDown(keyDelete);
        if (!pasteKeys && !copyKeys && !cutKeys && key != keyDelete && key != xTOperation::pasteCode)
            return;
        Run(xTOperation::xTKey{key});
        if (key == keyInsert || key == keyDelete || key == xTOperation::pasteCode)
            Notify();
    });
}

void xTOperStack::add_block(const CString& text, const xTPos& first, const xTPos& last, bool move)
{
    Guarded([&] {
        CString plain = text;
        strip_cr(plain);  // the one place where text from outside loses its carriage returns
        Run(xTOperation::xTBlock{plain, first, last, move});
        Notify();
    });
}

void xTOperStack::add_delete(const xTPos& first, const xTPos& last)
{
    Guarded([&] {
        Run(xTOperation::xTRange{first, last});
        Notify();
    });
}

void xTOperStack::add_case(bool upper)
{
    Guarded([&] {
        Run(xTOperation::xTCase{upper});
        Notify();
    });
}

void xTOperStack::add_layout()
{
    Guarded([&] {
        Run(xTOperation::xTLayout{});
        Notify();
    });
}

void xTOperStack::add_indent(bool remove)
{
    Guarded([&] {
        Run(xTOperation::xTIndent{remove});
        Notify();
    });
}

void xTOperStack::add_comment(std::int32_t mode)
{
    Guarded([&] {
        Run(xTOperation::xTComment{mode});
        Notify();
    });
}

void xTOperStack::add_replace(const xTSearchRequest& request)
{
    Guarded([&] { Run(request); });
}

bool xTOperStack::undo()
{
    return Guarded(false, [&] {
        if (undoList.empty())
            return false;
        xTSteps step = TakeHead(undoList);
        step.front().undo();
        DropTail(redoList, capacity);
        redoList.splice(redoList.begin(), step);
        return true;
    });
}

bool xTOperStack::redo()
{
    return Guarded(false, [&] {
        if (redoList.empty())
            return false;
        xTSteps step = TakeHead(redoList);
        step.front().redo();
        push_undo(step);  // a step that the redo left with a count of 0 is in neither list afterwards
        if (window)
            window->Invalidate();
        return true;
    });
}

void xTOperStack::clear_undo()
{
    Guarded([&] { undoList.clear(); });
}

void xTOperStack::clear_redo()
{
    Guarded([&] { redoList.clear(); });
}

xTOperStack::xTOperStack(const xTOperStack& other)
    : capacity(other.capacity), window(other.window), store(other.store)
{
    Guarded([&] {
        CopyList(other.undoList, undoList);
        CopyList(other.redoList, redoList);
    });
}

xTOperStack& xTOperStack::operator=(const xTOperStack& other)
{
    Guarded([&] {
        if (this == &other)
            return;
        capacity = other.capacity;
        window = other.window;
        store = other.store;
        CopyList(other.undoList, undoList);
        CopyList(other.redoList, redoList);
    });
    return *this;
}

void xTOperStack::CopyList(const xTSteps& from, xTSteps& to) const
{
    to.clear();
    for (const xTOperation& step : from) {
        if (to.size() >= static_cast<std::size_t>(capacity))
            return;
        to.push_back(step);
    }
}
