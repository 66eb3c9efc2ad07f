// SPDX-License-Identifier: MIT
#include "support/in_threads.h"

#include <atomic>
#include <thread>
#include <vector>

#include "support/check_hr.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

class Apartment {
public:
    explicit Apartment(COINIT kind) { EXPECT_SUCCEEDED(CoInitializeEx(nullptr, kind)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

} // namespace

void InThreads(int count, COINIT apartment, DWORD patience,
               const std::function<void(int number)>& work) {
    std::atomic<int> running{count};
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            {
                const Apartment own(apartment);
                try {
                    work(i);
                } catch (const std::exception& error) {
                    ADD_FAILURE() << error.what();
                }
            }
            --running;
        });
    EXPECT_TRUE(PumpUntil([&] { return running == 0; }, patience));
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace vndesk::test
