// SPDX-License-Identifier: MIT
// Short memory for the code that is linked into this test program: C++ allocations of the calling
// thread fail on request.
#pragma once

namespace vndesk::test {

// While it lives, the calling thread's operator new gives `left` more blocks, then none.
class FailingMemory {
public:
    explicit FailingMemory(int left);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    // Whether an allocation has failed.
    bool Met() const;
};

} // namespace vndesk::test
