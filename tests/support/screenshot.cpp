// SPDX-License-Identifier: MIT
#include "support/screenshot.h"

#include <vector>
#include <wincodec.h>
#include <wrl/client.h>

#include "support/env.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;

// Spelled out: mingw has them in a library that nothing else needs.
constexpr GUID kImagingFactory = {
    0xcacaf262, 0x9370, 0x4615, {0xa1, 0x3b, 0x9f, 0x55, 0x39, 0xda, 0x4c, 0x0a}};
constexpr GUID kPng = {
    0x1b7cfaf4, 0x713f, 0x473c, {0xbb, 0xcd, 0x61, 0x37, 0x42, 0x5f, 0xae, 0xaf}};
constexpr GUID k32bppBgr = {
    0x6fddc324, 0x4e03, 0x4bfe, {0xb1, 0x85, 0x3d, 0x77, 0x76, 0x8d, 0xc9, 0x0e}};

struct Apartment {
    HRESULT hr = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    ~Apartment() {
        if (SUCCEEDED(hr))
            CoUninitialize();
    }
};

bool WritePng(const std::wstring& path, int width, int height, std::vector<BYTE>& pixels) {
    const Apartment apartment;
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    WICPixelFormatGUID format = k32bppBgr;
    ComPtr<IWICBitmap> bitmap;
    if (FAILED(CoCreateInstance(kImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&factory))) ||
        FAILED(factory->CreateBitmapFromMemory(width, height, k32bppBgr, width * 4,
                                               static_cast<UINT>(pixels.size()), pixels.data(),
                                               &bitmap)) ||
        FAILED(factory->CreateStream(&stream)) ||
        FAILED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) ||
        FAILED(factory->CreateEncoder(kPng, nullptr, &encoder)) ||
        FAILED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) ||
        FAILED(encoder->CreateNewFrame(&frame, nullptr)) || FAILED(frame->Initialize(nullptr)) ||
        FAILED(frame->SetSize(width, height)) || FAILED(frame->SetPixelFormat(&format)))
        return false;
    return SUCCEEDED(frame->WriteSource(bitmap.Get(), nullptr)) && SUCCEEDED(frame->Commit()) &&
           SUCCEEDED(encoder->Commit());
}

} // namespace

std::wstring SaveArea(const RECT& area, const std::wstring& name) {
    const int width = area.right - area.left, height = area.bottom - area.top;
    if (width <= 0 || height <= 0)
        return L"";
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;

    std::vector<BYTE> pixels(static_cast<size_t>(width) * height * 4);
    void* bits = nullptr;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    bool copied = false;
    if (memory && bitmap) {
        HGDIOBJ old = SelectObject(memory, bitmap);
        copied = BitBlt(memory, 0, 0, width, height, screen, area.left, area.top,
                        SRCCOPY | CAPTUREBLT) != FALSE;
        GdiFlush();
        if (copied)
            memcpy(pixels.data(), bits, pixels.size());
        SelectObject(memory, old);
    }
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);

    const std::wstring path = OutDir() + L"\\" + name + L".png";
    DeleteFileW(path.c_str());
    return copied && WritePng(path, width, height, pixels) ? path : L"";
}

std::wstring SaveWindow(HWND window, const std::wstring& name) {
    RECT area = {};
    GetWindowRect(window, &area);
    return SaveArea(area, name);
}

std::wstring SaveDesktop(const std::wstring& name) {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return SaveArea({left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                     top + GetSystemMetrics(SM_CYVIRTUALSCREEN)},
                    name);
}

} // namespace vndesk::test
