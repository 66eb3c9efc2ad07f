// SPDX-License-Identifier: MIT
// Memory for passwords and keys, cleared when it is given back.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>

namespace vndesk {

template <class Unit> class Wiped {
public:
    explicit Wiped(std::size_t size) : units_(new Unit[size]()), capacity_(size), size_(size) {}
    Wiped(Wiped&&) noexcept = default;
    Wiped& operator=(Wiped&&) = delete;
    ~Wiped() {
        if (units_)
            SecureZeroMemory(units_.get(), capacity_ * sizeof(Unit));
    }

    // Less than it was made with; the rest is cleared all the same.
    void Shorten(std::size_t size) noexcept { size_ = size; }

    Unit* Data() noexcept { return units_.get(); }
    const Unit* Data() const noexcept { return units_.get(); }
    std::size_t Size() const noexcept { return size_; }

private:
    std::unique_ptr<Unit[]> units_;
    std::size_t capacity_;
    std::size_t size_;
};

} // namespace vndesk
