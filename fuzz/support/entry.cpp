// SPDX-License-Identifier: MIT
// From libFuzzer's call to the target's.
#include "support/input.h"

#include <charconv>

#include "ado/text/utf8.h"

namespace vndesk::fuzz {

std::string_view Input::Line() {
    const std::size_t end = rest_.find('\n');
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    return line;
}

std::string_view Input::Bytes() {
    const std::string_view all = rest_;
    rest_ = {};
    return all;
}

std::wstring Input::Text() {
    return ado::FromUtf8(Line());
}

std::wstring Input::RestText() {
    return ado::FromUtf8(Bytes());
}

std::wstring Input::RestCodes() {
    std::wstring text;
    for (const char byte : Bytes())
        text.push_back(static_cast<unsigned char>(byte));
    return text;
}

long Input::Number(long low, long high) {
    const std::string_view line = Line();
    long long number = low;
    std::from_chars(line.data(), line.data() + line.size(), number);
    const auto range = static_cast<unsigned long long>(high) - static_cast<unsigned long long>(low);
    const auto above =
        static_cast<unsigned long long>(number) - static_cast<unsigned long long>(low);
    return static_cast<long>(static_cast<unsigned long long>(low) +
                             (range + 1 == 0 ? above : above % (range + 1)));
}

} // namespace vndesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vndesk::fuzz::Input input({reinterpret_cast<const char*>(data), size});
    vndesk::fuzz::RunOne(input);
    return 0;
}
