// SPDX-License-Identifier: MIT
// A manifest in force for the current thread.
#pragma once
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace vndesk::test {

class ActivationContext {
public:
    explicit ActivationContext(const std::wstring& manifest) {
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.lpSource = manifest.c_str();
        context_ = CreateActCtxW(&description);
        EXPECT_NE(INVALID_HANDLE_VALUE, context_) << "error " << GetLastError();
    }
    ~ActivationContext() { ReleaseActCtx(context_); }
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    // In force until it is destroyed, on the thread that made it.
    class Active {
    public:
        explicit Active(const ActivationContext& context) {
            EXPECT_TRUE(ActivateActCtx(context.context_, &cookie_));
        }
        ~Active() { DeactivateActCtx(0, cookie_); }
        Active(const Active&) = delete;
        Active& operator=(const Active&) = delete;

    private:
        ULONG_PTR cookie_ = 0;
    };

private:
    HANDLE context_;
};

} // namespace vndesk::test
