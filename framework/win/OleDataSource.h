#pragma once

#include "framework/win/ComObject.h"
#include "framework/win/Handles.h"

#include <objidl.h>

/// The data of a drag out of a window of ours, and the drag itself. What a receiver has taken hold of stays valid when
/// this ends; it is empty then.
class COleDataSource {
public:
    COleDataSource() = default;
    COleDataSource(const COleDataSource&) = delete;
    COleDataSource& operator=(const COleDataSource&) = delete;
    ~COleDataSource() { Empty(); }

    /// Offers a block of global memory in a clipboard format; receivers get copies. A second one of the same format
    /// takes the place of the first. Raises std::bad_alloc.
    void CacheGlobalData(CLIPFORMAT format, xTGlobal block);

    /// Drags until the button is let go or the drag is cancelled; runs a modal message loop. A drag that begins with the
    /// left button up is cancelled at once.
    /// @param effects the DROPEFFECT_ bits that the source allows
    /// @return what the target did, one of `effects`; DROPEFFECT_NONE for a drag that was cancelled or is running already
    DWORD DoDragDrop(DWORD effects);

    /// True while DoDragDrop runs.
    [[nodiscard]] bool IsDragging() const noexcept { return m_dragging; }

    void Empty() noexcept;

private:
    class xTData;

    xTComPtr<IDataObject> m_object;
    xTData* m_data = nullptr;  // the same object
    bool m_dragging = false;
};

/// The data of an object in a format as a block of its own; null when there is none.
[[nodiscard]] xTGlobal GetGlobalData(IDataObject* data, CLIPFORMAT format) noexcept;

/// A copy of a block; null when memory is short.
[[nodiscard]] xTGlobal CopyGlobal(HGLOBAL block) noexcept;
