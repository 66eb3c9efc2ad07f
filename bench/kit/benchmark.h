// SPDX-License-Identifier: MIT
// The bench programs' clock and table: every case stands beside the limit or peer that it is
// compared with, both run in turns within one process, and medians of many rounds are compared.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace bench {

// Runs something `times` times and says how many nanoseconds that took in all.
using Work = std::function<double(std::size_t times)>;

double Now(); // nanoseconds

// The whole body counts.
template <class Body> Work Each(Body body) {
    return [body = std::move(body)](std::size_t times) mutable {
        const double begin = Now();
        for (std::size_t i = 0; i < times; ++i)
            body();
        return Now() - begin;
    };
}

// Only the body counts, not what prepares it and cleans up after it.
template <class Before, class Body, class After>
Work Between(Before before, Body body, After after) {
    return [=](std::size_t times) mutable {
        double total = 0;
        for (std::size_t i = 0; i < times; ++i) {
            before();
            const double begin = Now();
            body();
            total += Now() - begin;
            after();
        }
        return total;
    };
}

// Keeps a result from being optimised away.
template <class T> void Keep(const T& value) {
    const volatile void* sink = &value;
    static_cast<void>(sink);
#if defined(__GNUC__)
    asm volatile("" : : "r"(&value) : "memory");
#endif
}

enum class Target {
    AtMost,  // times the peer: ours / peer <= target
    Faster,  // times faster: peer / ours >= target
    Nothing, // shown without a target
};

struct Comparison {
    std::string area;
    std::string peer;
    Target kind;
    double target;
    Work ours;
    Work theirs;
    int rounds = 25;
};

// A figure without a peer: a size, a time, with the limit that it is to keep.
struct Figure {
    std::string area;
    std::string unit;
    double value;
    double limit; // 0: none
};

class Report {
public:
    Report(std::string program, int argc, char** argv);

    void Compare(Comparison comparison);
    void Note(Figure figure);
    // Prints the table, after --both also JSON; 0 for main to return.
    int Finish() const;

private:
    struct Row {
        std::string area, peer;
        Target kind;
        double target, ours, theirs, ratio;
    };
    void PrintTable(const char* margin) const;
    void PrintJson() const;

    std::string program_, filter_;
    bool both_ = false;
    std::vector<Row> rows_;
    std::vector<Figure> figures_;
};

} // namespace bench
