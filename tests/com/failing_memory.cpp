// SPDX-License-Identifier: MIT
#include "com/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool limited;
thread_local int left_;

} // namespace

void* operator new(std::size_t size) {
    if (!limited || left_-- > 0)
        if (void* block = std::malloc(size ? size : 1))
            return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace vndesk::test {

FailingMemory::FailingMemory(int left) {
    left_ = left;
    limited = true;
}

FailingMemory::~FailingMemory() {
    limited = false;
}

bool FailingMemory::Met() const {
    return left_ < 0;
}

} // namespace vndesk::test
