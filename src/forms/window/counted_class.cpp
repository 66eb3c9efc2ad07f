// SPDX-License-Identifier: MIT
#include "forms/window/counted_class.h"

#include "comkit/base/com_error.h"
#include "comkit/base/lock.h"
#include "comkit/base/module.h"

namespace vndesk {

namespace {

// Hosts may have forms in several threads.
SRWLOCK lock_ = SRWLOCK_INIT;

void Register(const ClassDesign& design) {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = design.style;
    description.lpfnWndProc = design.procedure;
    description.cbWndExtra = design.windowExtra;
    description.hInstance = ModuleInstance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = design.background;
    description.lpszClassName = design.name;
    // UnregisterClass fails while windows of the class exist: then it is still there, and is used
    // again.
    if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
}

} // namespace

CountedClass::CountedClass(const ClassDesign& design, int& users)
    : name_(design.name), users_(users) {
    const Writing writing(lock_);
    if (users_ == 0)
        Register(design);
    ++users_;
}

CountedClass::~CountedClass() {
    const Writing writing(lock_);
    if (--users_ == 0)
        UnregisterClassW(name_, ModuleInstance());
}

} // namespace vndesk
