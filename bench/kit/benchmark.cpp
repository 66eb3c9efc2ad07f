// SPDX-License-Identifier: MIT
#include "kit/benchmark.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace bench {
namespace {

constexpr double kSlice = 4e6; // nanoseconds: far above the clock's own steps

double Median(std::vector<double> values) {
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// How often the work must run to fill a slice.
std::size_t Calibrate(const Work& work) {
    std::size_t times = 1;
    while (times < (std::size_t{1} << 28)) {
        const double taken = work(times);
        if (taken >= kSlice)
            return times;
        times = taken < kSlice / 100 ? times * 10
                                     : static_cast<std::size_t>(times * kSlice / taken * 1.2) + 1;
    }
    return times;
}

std::string Duration(double nanoseconds) {
    char text[32];
    if (nanoseconds < 1e4)
        std::snprintf(text, sizeof text, "%.1f ns", nanoseconds);
    else if (nanoseconds < 1e7)
        std::snprintf(text, sizeof text, "%.1f us", nanoseconds / 1e3);
    else
        std::snprintf(text, sizeof text, "%.1f ms", nanoseconds / 1e6);
    return text;
}

bool Reached(Target kind, double target, double ratio) {
    return kind == Target::AtMost ? ratio <= target : ratio >= target;
}

std::string Quoted(const std::string& text) {
    std::string result = "\"";
    for (char ch : text) {
        if (ch == '"' || ch == '\\')
            result += '\\';
        result += ch;
    }
    return result + "\"";
}

} // namespace

double Now() {
    using namespace std::chrono;
    return static_cast<double>(
        duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count());
}

Report::Report(std::string program, int argc, char** argv) : program_(std::move(program)) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--both") == 0)
            both_ = true;
        else
            filter_ = argv[i];
    }
}

void Report::Compare(Comparison comparison) {
    if (comparison.area.find(filter_) == std::string::npos)
        return;
    const std::size_t oursTimes = Calibrate(comparison.ours);
    const std::size_t theirTimes = Calibrate(comparison.theirs);
    std::vector<double> ours, theirs, ratios;
    for (int round = 0; round < comparison.rounds; ++round) {
        // In turns, so that a slow moment of the machine hits both.
        ours.push_back(comparison.ours(oursTimes) / static_cast<double>(oursTimes));
        theirs.push_back(comparison.theirs(theirTimes) / static_cast<double>(theirTimes));
        ratios.push_back(comparison.kind == Target::Faster ? theirs.back() / ours.back()
                                                           : ours.back() / theirs.back());
    }
    rows_.push_back({comparison.area, comparison.peer, comparison.kind, comparison.target,
                     Median(ours), Median(theirs), Median(ratios)});
}

void Report::Note(Figure figure) {
    if (figure.area.find(filter_) != std::string::npos)
        figures_.push_back(std::move(figure));
}

void Report::PrintJson() const {
    std::printf("{\"program\": %s, \"rows\": [", Quoted(program_).c_str());
    const char* comma = "";
    for (const Row& row : rows_) {
        std::printf(
            "%s\n  {\"area\": %s, \"peer\": %s, \"ns\": %.2f, \"peer_ns\": %.2f, \"ratio\": %.3f",
            comma, Quoted(row.area).c_str(), Quoted(row.peer).c_str(), row.ours, row.theirs,
            row.ratio);
        if (row.kind != Target::Nothing)
            std::printf(", \"%s\": %g, \"reached\": %s",
                        row.kind == Target::AtMost ? "at_most" : "times_faster", row.target,
                        Reached(row.kind, row.target, row.ratio) ? "true" : "false");
        std::printf("}");
        comma = ",";
    }
    for (const Figure& figure : figures_) {
        std::printf("%s\n  {\"area\": %s, \"unit\": %s, \"value\": %.3f, \"limit\": %g}", comma,
                    Quoted(figure.area).c_str(), Quoted(figure.unit).c_str(), figure.value,
                    figure.limit);
        comma = ",";
    }
    std::printf("\n]}\n");
}

void Report::PrintTable(const char* margin) const {
    std::printf(
        "%s| %s | here | limit or peer | there | ratio | target |\n%s|---|---|---|---|---|---|\n",
        margin, program_.c_str(), margin);
    for (const Row& row : rows_) {
        char target[48] = "";
        if (row.kind == Target::AtMost)
            std::snprintf(target, sizeof target, "at most %.4g", row.target);
        else if (row.kind == Target::Faster)
            std::snprintf(target, sizeof target, "at least %.4g times faster", row.target);
        const bool missed =
            row.kind != Target::Nothing && !Reached(row.kind, row.target, row.ratio);
        std::printf("%s| %s | %s | %s | %s | %.2f | %s%s |\n", margin, row.area.c_str(),
                    Duration(row.ours).c_str(), row.peer.c_str(), Duration(row.theirs).c_str(),
                    row.ratio, target, missed ? ": not reached" : "");
    }
    for (const Figure& figure : figures_) {
        std::printf("%s| %s | %.7g %s | | | | ", margin, figure.area.c_str(), figure.value,
                    figure.unit.c_str());
        if (figure.limit > 0)
            std::printf("at most %.7g%s", figure.limit,
                        figure.value <= figure.limit ? "" : ": not reached");
        std::printf(" |\n");
    }
}

int Report::Finish() const {
    // The mark lets table and JSON share a file.
    PrintTable(both_ ? "# " : "");
    if (both_)
        PrintJson();
    return 0;
}

} // namespace bench
