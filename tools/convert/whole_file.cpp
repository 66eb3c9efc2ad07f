// SPDX-License-Identifier: MIT
#include "convert/whole_file.h"

#include <windows.h>

#include <algorithm>

#include "comkit/base/com_error.h"

namespace vndesk::convert {

namespace {

constexpr std::size_t kPiece = 1 << 20;

[[noreturn]] void ThrowLast() {
    const HRESULT code = HRESULT_FROM_WIN32(GetLastError());
    throw ComError(code, SystemMessage(code));
}

class File {
public:
    File(const std::wstring& path, DWORD access, DWORD disposition)
        : handle_(CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ == INVALID_HANDLE_VALUE)
            ThrowLast();
    }
    ~File() { CloseHandle(handle_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::string ReadAll() const {
        std::string bytes;
        for (DWORD read = 1; read != 0;) {
            const std::size_t have = bytes.size();
            bytes.resize(have + kPiece);
            if (!ReadFile(handle_, bytes.data() + have, kPiece, &read, nullptr))
                ThrowLast();
            bytes.resize(have + read);
        }
        return bytes;
    }

    void WriteAll(const std::string& bytes) const {
        for (std::size_t at = 0; at < bytes.size();) {
            DWORD written = 0;
            const auto length = static_cast<DWORD>(std::min(kPiece, bytes.size() - at));
            if (!WriteFile(handle_, bytes.data() + at, length, &written, nullptr))
                ThrowLast();
            at += written;
        }
        if (!FlushFileBuffers(handle_))
            ThrowLast();
    }

private:
    const HANDLE handle_;
};

} // namespace

std::string ReadWhole(const std::wstring& path) {
    return File(path, GENERIC_READ, OPEN_EXISTING).ReadAll();
}

void WriteWhole(const std::wstring& path, const std::string& bytes) {
    const std::wstring beside = path + L".vndesk-tmp";
    try {
        File(beside, GENERIC_WRITE, CREATE_ALWAYS).WriteAll(bytes);
        if (!MoveFileExW(beside.c_str(), path.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            ThrowLast();
    } catch (...) {
        DeleteFileW(beside.c_str());
        throw;
    }
}

} // namespace vndesk::convert
