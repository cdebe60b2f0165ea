#pragma once

#include "framework/base/CString.h"
#include "store/StoreWindow.h"

#include <windows.h>

class CFindDialog;
class xTMemStorage;
class xTOperStack;
struct xTSearchRecord;

/// The control as the search sees it. A null part, or a null `Handle`, means that the control is gone.
class xTFindOwner : public xTStoreWindow {
public:
    [[nodiscard]] virtual xTMemStorage* Store() const noexcept = 0;
    [[nodiscard]] virtual xTOperStack* Operations() const noexcept = 0;

protected:
    ~xTFindOwner() = default;  // never owned through this type
};

/// Connects the system's modeless find dialog to the text of one control. No failure leaves an operation of this class.
class xTFindReplace {
public:
    /// @param owner not owned, may be null
    explicit xTFindReplace(xTFindOwner* owner) noexcept : owner(owner) {}
    xTFindReplace(const xTFindReplace&) = delete;
    xTFindReplace& operator=(const xTFindReplace&) = delete;
    virtual ~xTFindReplace();

    // An open dialog stays as it is, and the other kind does not replace it.
    void show_find();
    void show_replace();

    /// Repeats the last search of the process. @return true if there was one
    bool find_next();
    /// Does what a dialog asks for. @param lParam of the registered message @return 0
    LRESULT on_find_message(LPARAM lParam);
    [[nodiscard]] static CString last_find_text();
    /// Asks the host whether a search may go on past the end of the text. @return false without a host
    [[nodiscard]] bool confirm_wrap() const;

    xTFindOwner* owner;
    CFindDialog* dialog = nullptr;  ///< null while none is open; it owns itself

private:
    struct xTStart;

    void show(bool replace);
    [[nodiscard]] xTStart prepare_dialog() const;
    [[nodiscard]] CString word_at_caret() const;
    void do_find(const xTSearchRecord& record);
    [[nodiscard]] bool owner_lives() const;
};
