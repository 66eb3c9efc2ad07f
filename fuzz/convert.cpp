// SPDX-License-Identifier: MIT
// The number of an encoding, then what a column holds. What is converted once is not converted
// again, from whatever encoding, and a report keeps what stands in it.
#include "support/input.h"

#include "convert/judge.h"
#include "convert/report.h"

#include <algorithm>

namespace vndesk::fuzz {

namespace {

using namespace vndesk::convert;

constexpr Encoding kSources[] = {Encoding::Tcvn3, Encoding::VniWindows, Encoding::Cp1258};

void CheckReport(const std::wstring& text, const Judged& judged) {
    CsvReport report;
    report.Add(text, text, text, judged);
    MUST(std::count(report.Text().begin(), report.Text().end(), L'"') % 2 == 0);
}

void CheckJudgement(const std::wstring& text, Encoding from) {
    const Judged judged = Judge(text, from);
    MUST((judged.verdict == Verdict::Doubtful) == (judged.doubt != Doubt::None));
    CheckReport(text, judged);
    if (judged.verdict != Verdict::Convert)
        return;
    MUST(AnsiBytes(text));
    MUST(judged.converted != text && judged.converted.size() <= text.size());
    for (const Encoding again : kSources)
        MUST(Judge(judged.converted, again).verdict != Verdict::Convert);
}

} // namespace

void RunOne(Input& input) {
    const Encoding from = kSources[input.Number(0, 2)];
    const bool asBytes = input.Flag();
    const std::wstring text = asBytes ? input.RestCodes() : input.RestText();
    CheckJudgement(text, from);
    if (!asBytes)
        return;
    const ByteText bytes(text.begin(), text.end());
    const Judged file = JudgeFile(bytes, from);
    MUST(file.verdict != Verdict::Convert || !file.converted.empty());
}

} // namespace vndesk::fuzz
