// SPDX-License-Identifier: MIT
// The designed properties of the data combo, and the two ways in which containers keep them. The
// items are not kept.
#pragma once

#include <windows.h>
#include <ocidl.h>

#include <string>

#include "comkit/object/com_object.h"
#include "controls/combo/window/data_combo.h"

namespace vndesk {

// What a stream needs at most.
inline constexpr unsigned kLargestState = 1024;

struct DataComboState {
    OLE_COLOR backColor = DataCombo::kBackColor;
    OLE_COLOR foreColor = DataCombo::kForeColor;
    bool enabled = true;
    // Null stands for the container's ambient font.
    ComPtr<IFont> font;
    short backStyle = 0;
    short borderStyle = 0;
};

// What stands in the lists when the properties are written.
struct DataComboTexts {
    std::wstring shown;
    std::wstring hidden;
};

// Properties that are missing or make no sense have their default.
DataComboState ReadState(IPropertyBag* bag, IErrorLog* errors);

// Writes what differs from the defaults, or all. The texts of the lists are written too, as "Text",
// "Value" and "ItemData"; they are never read. `font` is what is written for the font.
void WriteState(IPropertyBag* bag, const DataComboState& state, IFont* font,
                const DataComboTexts& texts, bool all);

// Throws for a stream that holds something else, or not all of it.
DataComboState ReadState(IStream* stream);
void WriteState(IStream* stream, const DataComboState& state);

} // namespace vndesk
