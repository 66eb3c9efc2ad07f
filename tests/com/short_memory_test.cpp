// SPDX-License-Identifier: MIT
// Errors are told without memory too: short memory is an answer of the call, not the end of the
// host.
#include <gtest/gtest.h>
#include <comdef.h>
#include <olectl.h>

#include <new>
#include <stdexcept>
#include <utility>

#include "com/failing_memory.h"
#include "com/registered_dll.h"
#include "comkit/base/com_error.h"
#include "comkit/object/dispatch.h"
#include "support/check_hr.h"
#include "support/new_object.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk;
using namespace vndesk::test;

// What Trap says of the exception, with no memory left while it does.
template <class Throw> HRESULT Trapped(Throw&& steps) {
    const FailingMemory none(0);
    return ToHresult(steps);
}

TEST(ShortMemory, TrapHandsTheErrorBack) {
    EXPECT_HR(E_OUTOFMEMORY, Trapped([] { throw std::bad_alloc(); }));
    EXPECT_HR(E_UNEXPECTED, Trapped([] { throw 5; }));
    EXPECT_HR(E_ACCESSDENIED, Trapped([] { throw ComError(E_ACCESSDENIED); }));
    std::overflow_error overflow("a number");
    EXPECT_HR(CTL_E_OVERFLOW, Trapped([&] { throw std::move(overflow); }));
}

TEST(ShortMemory, TrapKeepsTheNumberOfAnErrorWhoseTextHasNoRoom) {
    ComError told(E_ACCESSDENIED, std::wstring(100, L'x'));
    EXPECT_HR(E_ACCESSDENIED, Trapped([&] { throw std::move(told); }));
}

TEST(ShortMemory, ErrorsAreReportedWithWhatIsLeft) {
    HRESULT reported = S_OK;
    {
        const FailingMemory none(0);
        try {
            throw std::bad_alloc();
        } catch (...) {
            reported = ReportCurrentError(IID_IUnknown, L"VnDesk.Test");
        }
    }
    EXPECT_HR(E_OUTOFMEMORY, reported);
    SetErrorInfo(0, nullptr);
}

// The layer in front of the platform's Invoke, with each allocation of it failing in turn.
TEST(ShortMemory, LateBoundCallsAnswerOutOfMemory) {
    const auto registry = NewObject<IRegistry>(L"VnDesk.clsRegistry");
    ComPtr<ITypeInfo> info;
    ASSERT_SUCCEEDED(registry->GetTypeInfo(0, LOCALE_NEUTRAL, &info));
    const TypeDescription type = {__uuidof(IRegistry), info, MemberTable(info.Get())};
    constexpr DISPID kGetKeyValue = 1;
    const _variant_t given[] = {L"", 5L, L"Software\\VnDesk has no such key", 0x80000001L};
    int failed = 0;
    for (int left = 0; left < 100; ++left) {
        _variant_t arguments[] = {given[0], given[1], given[2], given[3]}, opened;
        DISPPARAMS parameters = {arguments, nullptr, 4, 0};
        HRESULT called = S_OK;
        bool met = false;
        {
            const FailingMemory memory(left);
            called = InvokeCoerced(type, registry.Get(), kGetKeyValue, DISPATCH_METHOD, &parameters,
                                   &opened, nullptr, nullptr);
            met = memory.Met();
        }
        EXPECT_HR(met ? E_OUTOFMEMORY : S_OK, called) << left;
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(given[i], arguments[i]) << "the caller's arguments, " << i;
        if (!met)
            break;
        ++failed;
    }
    EXPECT_LT(2, failed);
    EXPECT_GT(100, failed);
}

} // namespace
