// SPDX-License-Identifier: MIT
// Chance that can be repeated.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vndesk::test {

// The same numbers for the same seed on every machine and compiler.
class Dice {
public:
    explicit Dice(uint64_t seed) : state_(seed) {}
    // From 0 to sides - 1.
    int Roll(int sides) { return static_cast<int>(Next() % static_cast<uint64_t>(sides)); }
    bool OneIn(int sides) { return Roll(sides) == 0; }
    template <class Item, size_t size> const Item& Pick(const Item (&items)[size]) {
        return items[Roll(static_cast<int>(size))];
    }

private:
    // splitmix64
    uint64_t Next() {
        uint64_t value = state_ += 0x9E3779B97F4A7C15u;
        value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9u;
        value = (value ^ value >> 27) * 0x94D049BB133111EBu;
        return value ^ value >> 31;
    }

    uint64_t state_;
};

} // namespace vndesk::test
