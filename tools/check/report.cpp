// SPDX-License-Identifier: MIT
#include "check/report.h"

#include <cwchar>
#include <string_view>

namespace vndesk::check {

namespace {

constexpr const wchar_t* kStateNames[] = {L"ok", L"note", L"warning", L"error"};
constexpr const wchar_t* kResultNames[] = {L"ok", L"ok", L"warnings", L"errors"};

template <class Value> std::size_t Index(Value value) {
    return static_cast<std::size_t>(value);
}

std::wstring Quoted(std::wstring_view text) {
    std::wstring result = L"\"";
    for (const wchar_t ch : text) {
        if (ch == L'"' || ch == L'\\') {
            result += L'\\';
            result += ch;
        } else if (ch < 0x20) {
            wchar_t code[8];
            std::swprintf(code, 8, L"\\u%04x", static_cast<unsigned>(ch));
            result += code;
        } else {
            result += ch;
        }
    }
    return result + L'"';
}

std::wstring Member(std::wstring_view name, std::wstring_view text) {
    return Quoted(name) + L": " + Quoted(text);
}

std::wstring FindingObject(const Finding& finding, Language language) {
    const Kind& kind = KindOf(finding.id);
    const Words& words = WordsOf(finding.id, language);
    std::wstring values;
    for (const std::wstring& value : finding.values)
        values += (values.empty() ? L"" : L", ") + Quoted(value);
    return L"    {" + Member(L"id", kind.name) + L", " +
           Member(L"state", kStateNames[Index(kind.state)]) + L",\n     " +
           Member(L"text", Fill(words.found, finding.values)) + L",\n     " +
           Member(L"means", Fill(words.means, finding.values)) + L",\n     " +
           Member(L"do", Fill(words.todo, finding.values)) + L",\n     " + Quoted(L"values") +
           L": [" + values + L"]}";
}

} // namespace

std::wstring TextReport(const Findings& findings, const About& about, Language language) {
    const Frame& frame = FrameOf(language);
    std::wstring text = Fill(frame.title, {about.version}) + L"\n\n";
    for (const Finding& finding : findings) {
        const Kind& kind = KindOf(finding.id);
        const Words& words = WordsOf(finding.id, language);
        text += L"[" + std::wstring(frame.states[Index(kind.state)]) + L"] " +
                Fill(words.found, finding.values) + L"\n";
        if (*words.means)
            text += L"    " + Fill(words.means, finding.values) + L"\n";
        if (*words.todo)
            text += L"    " + std::wstring(frame.todo) + Fill(words.todo, finding.values) + L"\n";
        if (kind.state != State::Ok)
            text += L"    (" + std::wstring(kind.name) + L")\n";
    }
    return text + L"\n" + frame.results[Index(Worst(findings))] + L"\n";
}

std::wstring JsonReport(const Findings& findings, const About& about, Language language) {
    std::wstring objects;
    for (const Finding& finding : findings)
        objects += (objects.empty() ? L"" : L",\n") + FindingObject(finding, language);
    return L"{" + Member(L"program", L"vndesk-check") + L",\n " +
           Member(L"version", about.version) + L",\n " + Member(L"language", NameOf(language)) +
           L",\n " + Quoted(L"bits") + L": " + std::to_wstring(about.bits) + L",\n " +
           Member(L"result", kResultNames[Index(Worst(findings))]) + L",\n " + Quoted(L"exitCode") +
           L": " + std::to_wstring(ExitCode(findings)) + L",\n " + Quoted(L"findings") + L": [\n" +
           objects + L"]}\n";
}

} // namespace vndesk::check
