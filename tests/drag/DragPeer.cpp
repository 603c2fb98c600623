// SPDX-License-Identifier: MIT
// A window that takes data of the format "Quillane-Rgb" and gives data of that format, without the library.
// It has five fields beside each other. Data dropped on the first one is written as a line in hexadecimal
// digits. A drag from one of the others gives 16 bytes, 3 bytes, 3 megabytes that begin with 16 other bytes,
// or bytes of another format. Lines:
//
//     area X Y WIDTH HEIGHT
//     got LENGTH HEX          of at most the first 64 bytes
#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <utility>
#include <vector>

namespace {

constexpr int FIELD_SIZE = 80;
constexpr int FIELDS = 5;

using Bytes = std::vector<unsigned char>;

UINT format()
{
    static const UINT FORMAT = RegisterClipboardFormatW(L"Quillane-Rgb");
    return FORMAT;
}

UINT otherFormat()
{
    static const UINT FORMAT = RegisterClipboardFormatW(L"application/x-other");
    return FORMAT;
}

Bytes bytesOf(std::initializer_list<float> numbers, std::size_t size)
{
    Bytes bytes(size);
    std::memcpy(bytes.data(), numbers.begin(), numbers.size() * sizeof(float));
    return bytes;
}

std::pair<UINT, Bytes> payloadOf(int field)
{
    switch (field) {
    case 1:
        return {format(), bytesOf({0.25f, -3.0f, 42.0f, 1.0f}, 16)};
    case 2:
        return {format(), {1, 2, 3}};
    case 3:
        return {format(), bytesOf({0.5f, 1.5f, -1.0f, 0.0f}, 16 + (3 << 20))};
    default:
        return {otherFormat(), bytesOf({1.0f, 1.0f, 1.0f, 1.0f}, 16)};
    }
}

FORMATETC formatEtc(UINT kind)
{
    return {static_cast<CLIPFORMAT>(kind), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Each object lives on the stack for longer than COM uses the object, and counts no references.
template<class Interface>
class ComObject : public Interface
{
public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(Interface);
        *object = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return 2; }

    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

class Data : public ComObject<IDataObject>
{
public:
    explicit Data(std::pair<UINT, Bytes> payload)
        : m_format(formatEtc(payload.first)), m_bytes(std::move(payload.second))
    {}

    STDMETHODIMP GetData(FORMATETC* wanted, STGMEDIUM* medium) override
    {
        if (QueryGetData(wanted) != S_OK)
            return DV_E_FORMATETC;
        HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, m_bytes.size());
        std::memcpy(GlobalLock(memory), m_bytes.data(), m_bytes.size());
        GlobalUnlock(memory);
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        medium->pUnkForRelease = nullptr;
        return S_OK;
    }

    STDMETHODIMP QueryGetData(FORMATETC* wanted) override
    {
        const bool isOffered = wanted->cfFormat == m_format.cfFormat && (wanted->tymed & TYMED_HGLOBAL) != 0;
        return isOffered ? S_OK : DV_E_FORMATETC;
    }

    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override
    {
        return direction == DATADIR_GET ? SHCreateStdEnumFmtEtc(1, &m_format, formats) : E_NOTIMPL;
    }

    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }

    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }

    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }

    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }

    STDMETHODIMP DUnadvise(DWORD) override { return E_NOTIMPL; }

    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
    FORMATETC m_format;
    Bytes m_bytes;
};

class Source : public ComObject<IDropSource>
{
public:
    STDMETHODIMP QueryContinueDrag(BOOL isEscape, DWORD keys) override
    {
        if (isEscape != FALSE)
            return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }

    STDMETHODIMP GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

void printReceived(HGLOBAL memory)
{
    const std::size_t size = GlobalSize(memory);
    const auto* const bytes = static_cast<const unsigned char*>(GlobalLock(memory));
    std::printf("got %zu ", size);
    for (std::size_t i = 0; i < std::min<std::size_t>(size, 64); ++i)
        std::printf("%02x", bytes[i]);
    std::printf("\n");
    std::fflush(stdout);
    GlobalUnlock(memory);
}

class Target : public ComObject<IDropTarget>
{
public:
    STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override
    {
        FORMATETC wanted = formatEtc(format());
        m_isTaken = data->QueryGetData(&wanted) == S_OK;
        return DragOver(0, {}, effect);
    }

    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) override
    {
        *effect = m_isTaken ? DROPEFFECT_COPY : DROPEFFECT_NONE;
        return S_OK;
    }

    STDMETHODIMP DragLeave() override { return S_OK; }

    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override
    {
        FORMATETC wanted = formatEtc(format());
        STGMEDIUM medium{};
        *effect = DROPEFFECT_NONE;
        if (FAILED(data->GetData(&wanted, &medium)))
            return S_OK;
        printReceived(medium.hGlobal);
        ReleaseStgMedium(&medium);
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }

private:
    bool m_isTaken = false;
};

#pragma GCC diagnostic pop

void dragFrom(int field)
{
    if (field <= 0 || field >= FIELDS)
        return;
    Data data(payloadOf(field));
    Source source;
    DWORD effect = 0;
    DoDragDrop(&data, &source, DROPEFFECT_COPY, &effect);
}

void printPlace(HWND window)
{
    static POINT printed{-1, -1};
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    if (IsWindowVisible(window) == FALSE || (origin.x == printed.x && origin.y == printed.y))
        return;
    printed = origin;
    std::printf("area %ld %ld %d %d\n", origin.x, origin.y, FIELD_SIZE * FIELDS, FIELD_SIZE);
    std::fflush(stdout);
}

LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_TIMER:
        printPlace(window);
        return 0;
    case WM_LBUTTONDOWN:
        dragFrom(LOWORD(lParam) / FIELD_SIZE);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

HWND makeWindow()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = onMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"DragPeer";
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassW(&windowClass);
    RECT frame{0, 0, FIELD_SIZE * FIELDS, FIELD_SIZE};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowExW(0, windowClass.lpszClassName, L"Drag peer", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 600,
                           100, frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

} // namespace

int main()
{
    OleInitialize(nullptr);
    HWND const window = makeWindow();
    Target target;
    RegisterDragDrop(window, &target);
    SetTimer(window, 1, 100, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    RevokeDragDrop(window);
    OleUninitialize();
    return 0;
}
