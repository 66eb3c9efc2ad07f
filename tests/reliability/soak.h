// SPDX-License-Identifier: MIT
// Random use of the tour by keyboard and mouse for a given time, and what must stay true meanwhile.
#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "reliability/soak_actions.h"
#include "support/child_process.h"
#include "support/process_use.h"
#include "support/sample_database.h"

namespace vndesk::test {

class Soak {
public:
    Soak(const SampleDatabase& database, uint64_t seed, const std::wstring& log);

    // Throws when something is not as it must be. What has been done stands in the log.
    void Run(ULONGLONG seconds);

    std::string Figures() const;

private:
    void Start();
    void WatchForEnd();
    void Act();
    void Settle();
    void CheckAnswers();
    void CheckNewBoxes();
    void ReturnToMain();
    void Measure();
    void Close();
    void LetAdministratorIn() const;
    void Note(const std::wstring& text);
    [[noreturn]] void Broken(const std::wstring& what);

    const SampleDatabase& database_;
    const uint64_t seed_;
    std::ofstream log_;
    std::unique_ptr<ChildProcess> tour_;
    HWND main_ = nullptr;
    std::set<HWND> toldBoxes_;
    std::optional<ProcessUse> first_; // after the warm-up of this process
    ProcessUse most_;
    int measured_ = 0;
    long actions_ = 0, starts_ = 0, boxes_ = 0;
    DWORD slowest_ = 0; // milliseconds
    std::set<std::wstring> forms_;
};

} // namespace vndesk::test
