// SPDX-License-Identifier: MIT
// Filling and searching lists beside the controls' own messages, and virtual lists beside their
// data.
#include "controls/picker/cls_list_box.h"
#include "controls/picker/found_names.h"
#include "controls/picker/text/name_search.h"
#include "forms/lists/item_list.h"
#include "forms/lists/report_list.h"
#include "forms/window/form_of.h"
#include "kit/benchmark.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using namespace vndesk;

std::vector<std::wstring> Names(std::size_t count) {
    static constexpr const wchar_t* kParts[] = {L"NGUYỄN", L"TRẦN", L"LÊ",   L"PHẠM", L"HOÀNG",
                                                L"VĂN",    L"THỊ",  L"HƯNG", L"LAN",  L"ĐỨC",
                                                L"MINH",   L"ÁNH",  L"VŨ",   L"BÙI"};
    std::mt19937 random(3);
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < count; ++i) {
        std::wstring name = kParts[random() % std::size(kParts)];
        for (int part = 0; part < 2; ++part)
            name.append(L" ").append(kParts[random() % std::size(kParts)]);
        names.push_back(name + L' ' + std::to_wstring(i));
    }
    return names;
}

constexpr ControlSpec kControls[] = {
    ListBox(L"List", {0, 0, 4000, 4000}),
    DropDownList(L"Combo", {0, 4200, 4000, 4000}),
    ListView(L"Report", {4200, 0, 4000, 4000}),
};
constexpr FormSpec kForm = {
    .name = L"Bench",
    .caption = L"Bench",
    .client = {9000, 9000},
    .border = FormBorder::Sizable,
    .controls = kControls,
};

class Lists final : public FormOf<kForm> {
public:
    Lists() { Load(); }
};

void MeasureFilling(Report& report, Lists& form, Lists::Name name, UINT add, UINT reset,
                    const std::vector<std::wstring>& names) {
    Control& control = form.Get(name);
    const HWND window = control.Window();
    ItemList items(control);
    const std::string size = std::to_string(names.size()) + " rows";
    report.Compare({(add == LB_ADDSTRING ? "list box filled, " : "combo filled, ") + size,
                    "the control's messages, redraw off",
                    names.size() == 100000 ? Target::AtMost : Target::Nothing, 1.1,
                    Between([&] { items.Clear(); },
                            [&] {
                                const ItemList::Filling filling(items);
                                for (const std::wstring& text : names)
                                    items.AddItem(text);
                            },
                            [] {}),
                    Between([=] { SendMessageW(window, reset, 0, 0); },
                            [&names, window, add] {
                                SendMessageW(window, WM_SETREDRAW, FALSE, 0);
                                for (const std::wstring& text : names)
                                    SendMessageW(window, add, 0,
                                                 reinterpret_cast<LPARAM>(text.c_str()));
                                SendMessageW(window, WM_SETREDRAW, TRUE, 0);
                            },
                            [] {}),
                    9});
}

void MeasureSearch(Report& report, Lists& form, const std::vector<std::wstring>& names) {
    const HWND list = form.Get(L"List").Window();
    NameSearch search;
    for (const std::wstring& name : names)
        search.Add(name);
    const std::string size = std::to_string(names.size()) + " rows";
    NameSearch unsorted = search;
    report.Compare({"names sorted for the search, " + size, "copying them", Target::Nothing, 0,
                    Between([&] { search = unsorted; }, [&] { search.Index(); }, [] {}), Each([&] {
                        const std::vector<std::wstring> copy = names;
                        Keep(copy[0]);
                    }),
                    9});
    // Not there: the list must look at all of them.
    const std::wstring missing = L"VŨ HƯNG ÁNH X";
    report.Compare({"name searched by its beginning, " + size, "LB_FINDSTRING", Target::Nothing, 0,
                    Each([&] { Keep(search.Find(missing)); }), Each([&] {
                        Keep(SendMessageW(list, LB_FINDSTRING, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(missing.c_str())));
                    }),
                    9});
    const double begin = Now();
    constexpr int kTimes = 10000;
    for (int i = 0; i < kTimes; ++i)
        Keep(search.Find(missing));
    report.Note({"one key in " + size, "us", (Now() - begin) / kTimes / 1e3,
                 names.size() == 100000 ? 10.0 : 0});
}

// From a key to the list on the screen, where lists shrink to what is found.
void MeasureShrinking(Report& report, Lists& form, const std::vector<std::wstring>& names) {
    const double limit = names.size() == 100000 ? 30 : 0;
    const std::string size = std::to_string(names.size()) + " rows";
    constexpr SearchRules kRules = {Sensitivity::Smart, true};
    const auto milliseconds = [](auto&& key) {
        std::vector<double> times;
        for (int i = 0; i < 15; ++i) {
            const double begin = Now();
            key();
            times.push_back((Now() - begin) / 1e6);
        }
        std::nth_element(times.begin(), times.begin() + 7, times.end());
        return times[7];
    };
    const auto note = [&](const char* what, const char* typed, std::size_t found, double taken) {
        report.Note({std::string(what) + ", key of " + std::to_string(std::strlen(typed)) + " in " +
                         size + ", " + std::to_string(found) + " found",
                     "ms", taken, limit});
    };

    clsListBox list;
    list.SetTListBox(form.Get(L"List"));
    const HWND window = form.Get(L"List").Window();
    FoundNames picker(kRules, L"");
    for (const std::wstring& name : names)
        picker.Add(name, L"1");
    double begin = Now();
    picker.Show(list, L"");
    report.Note({"first list of a picker, " + size, "ms", (Now() - begin) / 1e6, 0});
    NameHits hits(kRules);
    for (const std::wstring& name : names)
        hits.Add(name);
    hits.Find(L"");

    Control& control = form.Get(L"Report");
    // Those of the lists that were measured before.
    while (SendMessageW(control.Window(), LVM_DELETECOLUMN, 0, 0)) {
    }
    ReportList rows(control, {{L"a", L"Tên", 0.4}, {L"b", L"Diễn giải", 0.4}, {L"c", L"Mã", 0.2}});
    for (std::size_t i = 0; i < names.size(); ++i)
        rows.Rows().push_back({L"T" + std::to_wstring(i), {names[i], names[i], L"1"}});
    for (const char* typed : {"n", "hoang", "tran van 7", "zzz"}) {
        const std::wstring text(typed, typed + std::strlen(typed));
        const std::size_t found = hits.Find(text).size();
        // With all names in the list before, as a user leaves it who waits.
        std::vector<double> times;
        for (int i = 0; i < 9; ++i) {
            picker.Show(list, L"");
            while (picker.ShowMore(list)) {
            }
            begin = Now();
            picker.Show(list, text);
            UpdateWindow(window);
            times.push_back((Now() - begin) / 1e6);
        }
        std::nth_element(times.begin(), times.begin() + 4, times.end());
        note("picker", typed, found, times[4]);
        note("report list", typed, found, milliseconds([&] {
                 rows.ShowOnly(hits.Find(text));
                 rows.Refresh();
                 UpdateWindow(control.Window());
             }));
    }
    list.Clear();
    control.onNotify = nullptr;
    form.Get(L"List").onGotFocus = form.Get(L"List").onLostFocus = nullptr;
}

void MeasureReport(Report& report, Lists& form, const std::vector<std::wstring>& names) {
    const HWND window = form.Get(L"Report").Window();
    ReportList list(form.Get(L"Report"),
                    {{L"a", L"Tên", 0.4}, {L"b", L"Diễn giải", 0.4}, {L"c", L"Mã", 0.2}});
    const std::string size = std::to_string(names.size()) + " rows";
    std::vector<ReportRow> plain;
    const auto fill = [&](std::vector<ReportRow>& rows) {
        for (std::size_t i = 0; i < names.size(); ++i)
            rows.push_back({L"T" + std::to_wstring(i), {names[i], names[i], L"1"}});
    };
    report.Compare({"report list filled and painted, " + size, "rows copied, virtual list painted",
                    names.size() == 100000 ? Target::AtMost : Target::Nothing, 2,
                    Between([&] { list.Rows().clear(); },
                            [&] {
                                fill(list.Rows());
                                list.Refresh();
                                UpdateWindow(window);
                            },
                            [] {}),
                    Between([&] { plain.clear(); },
                            [&] {
                                fill(plain);
                                SendMessageW(window, LVM_SETITEMCOUNT, plain.size(), 0);
                                InvalidateRect(window, nullptr, TRUE);
                                UpdateWindow(window);
                            },
                            [] {}),
                    9});

    // Back and forth, so that each page is a new one on the screen.
    const auto jump = [window, count = names.size()](auto text) {
        return Each([=, at = std::size_t{0}]() mutable {
            at = (at + count / 2 + 37) % count;
            SendMessageW(window, LVM_ENSUREVISIBLE, at, FALSE);
            UpdateWindow(window);
            text();
        });
    };
    Control& control = form.Get(L"Report");
    const auto handler = control.onNotify;
    static wchar_t same[] = L"NGUYỄN VĂN HƯNG 12345";
    const std::function<LRESULT(NMHDR&)> constant = [](NMHDR& notification) -> LRESULT {
        if (notification.code == LVN_GETDISPINFOW)
            reinterpret_cast<NMLVDISPINFOW&>(notification).item.pszText = same;
        return 0;
    };
    list.Rows().clear();
    fill(list.Rows());
    list.Refresh();
    const Work ours = jump([] {}), theirs = jump([] {});
    report.Compare({"report list scrolled and painted, " + size, "one text for all cells",
                    Target::AtMost, 1.3,
                    [&](std::size_t times) {
                        control.onNotify = handler;
                        return ours(times);
                    },
                    [&](std::size_t times) {
                        control.onNotify = constant;
                        return theirs(times);
                    },
                    9});
    control.onNotify = handler;
    // Not there: every row must be looked at.
    LVFINDINFOW missing{};
    missing.flags = LVFI_STRING | LVFI_PARTIAL;
    missing.psz = L"VŨ HƯNG ÁNH X";
    const HWND box = form.Get(L"List").Window();
    report.Compare({"report list searched by typing, " + size, "LB_FINDSTRING", Target::Nothing, 0,
                    Each([&] {
                        Keep(SendMessageW(window, LVM_FINDITEMW, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(&missing)));
                    }),
                    Each([&] {
                        Keep(SendMessageW(box, LB_FINDSTRING, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(missing.psz)));
                    }),
                    9});
}

} // namespace

int main(int argc, char** argv) {
    CoInitialize(nullptr);
    int code = 1;
    try {
        Report report("lists", argc, argv);
        Lists form;
        ShowWindow(GetParent(form.Get(L"List").Window()), SW_SHOW);
        for (const std::size_t count : {1000, 10000, 100000}) {
            const auto names = Names(count);
            MeasureFilling(report, form, L"Combo", CB_ADDSTRING, CB_RESETCONTENT, names);
            MeasureFilling(report, form, L"List", LB_ADDSTRING, LB_RESETCONTENT, names);
            MeasureSearch(report, form, names);
            MeasureReport(report, form, names);
            MeasureShrinking(report, form, names);
        }
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lists_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
