// SPDX-License-Identifier: MIT
// Where the pictures beside menu items come from: the common controls' ImageList object, or the
// handle of an image list.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <oaidl.h>

#include "comkit/object/com_object.h"

namespace vndesk {

class ImageSource {
public:
    ImageSource() = default;
    // An object with the property hImageList, a number, or nothing. Throws a type mismatch for
    // anything else.
    explicit ImageSource(const VARIANT& value);

    // The image list as it is now; null without one. An object is asked anew each time, because
    // its list comes with its first picture.
    HIMAGELIST Handle() const;

private:
    ComPtr<IDispatch> object_;
    HIMAGELIST handle_ = nullptr;
};

} // namespace vndesk
