// SPDX-License-Identifier: MIT
// The C library's own converter, a peer of conversions.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace bench {

class Iconv {
public:
    Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        if (handle_ == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error(std::string("the C library has no ") + from + " or " + to);
    }
    Iconv(const Iconv&) = delete;
    ~Iconv() { iconv_close(handle_); }
    void Convert(const void* in, std::size_t inBytes, void* out, std::size_t outBytes) {
        auto* from = const_cast<char*>(static_cast<const char*>(in));
        auto* to = static_cast<char*>(out);
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &from, &inBytes, &to, &outBytes) == static_cast<std::size_t>(-1))
            throw std::runtime_error("the C library could not convert the text");
        // It holds the last letter back for a combining mark.
        iconv(handle_, nullptr, nullptr, &to, &outBytes);
    }

private:
    iconv_t handle_;
};

} // namespace bench
