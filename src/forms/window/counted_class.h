// SPDX-License-Identifier: MIT
// A window class of the library, registered while somebody uses it: a DLL that is unloaded must
// leave no class behind.
#pragma once

#include <windows.h>

namespace vndesk {

struct ClassDesign {
    const wchar_t* name;
    WNDPROC procedure;
    UINT style = 0;
    int windowExtra = 0;
    HBRUSH background = nullptr;
};

class CountedClass {
public:
    // `users` belongs to the class and counts in all threads.
    CountedClass(const ClassDesign& design, int& users);
    ~CountedClass();
    CountedClass(const CountedClass&) = delete;
    CountedClass& operator=(const CountedClass&) = delete;

private:
    const wchar_t* const name_;
    int& users_;
};

} // namespace vndesk
