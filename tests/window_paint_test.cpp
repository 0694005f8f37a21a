#include <gtest/gtest.h>

#include "tests/window_recording.h"

namespace {

using namespace platen::test;

constexpr COLORREF kGray = RGB(128, 128, 128);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

COLORREF PixelOf(HWND window, int x, int y) {
    const HDC context = GetDC(window);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(window, context);
    return color;
}

RECT g_painted{};

/// Fills everything that is invalid with gray.
LRESULT PaintGray(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PAINT) {
        return DefWindowProc(window, message, wParam, lParam);
    }
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(window, &paint);
    g_painted = paint.rcPaint;
    const HGDIOBJ before = SelectObject(context, GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(before, GetStockObject(WHITE_BRUSH));
    PatBlt(context, -50, -50, 1000, 1000, PATCOPY);
    EXPECT_EQ(SelectObject(context, before), GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(SelectObject(context, GetStockObject(WHITE_PEN)), GetStockObject(BLACK_PEN))
        << "pen and brush are mixed up";
    EndPaint(window, &paint);
    return 0;
}

TEST(WindowPainting, LeavesTheInvalidPart) {
    Recording recording({WM_PAINT, WM_ERASEBKGND}, &PaintGray);
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    UpdateWindow(window);
    EXPECT_EQ(recording.Count(WM_PAINT), 1);
    EXPECT_EQ(PixelOf(window, 0, 0), kGray);
    EXPECT_EQ(PixelOf(window, 199, 99), kGray);
    EXPECT_EQ(PixelOf(window, 200, 99), CLR_INVALID);
    const HDC context = GetDC(window);
    PatBlt(context, 0, 0, 200, 100, WHITENESS);
    PatBlt(context, 10, 10, 5, 5, BLACKNESS);
    ReleaseDC(window, context);
    EXPECT_EQ(PixelOf(window, 14, 14), kBlack);
    EXPECT_EQ(PixelOf(window, 15, 14), kWhite);
    recording.Take();
    const RECT part{20, 30, 40, 50};
    InvalidateRect(window, &part, FALSE);
    UpdateWindow(window);
    UpdateWindow(window);
    EXPECT_EQ(recording.Count(WM_PAINT), 1) << "painted without need";
    EXPECT_EQ(recording.Count(WM_ERASEBKGND), 0);
    EXPECT_EQ(g_painted.left, 20);
    EXPECT_EQ(g_painted.bottom, 50);
    EXPECT_EQ(PixelOf(window, 20, 30), kGray);
    EXPECT_EQ(PixelOf(window, 39, 49), kGray);
    EXPECT_EQ(PixelOf(window, 19, 30), kWhite);
    EXPECT_EQ(PixelOf(window, 40, 49), kWhite);
}

TEST(WindowPainting, ComesForHiddenWindowsOrNever) {
    Recording recording({WM_PAINT, WM_ERASEBKGND}, &PaintGray);
    const Scoped window(Recording::Make("w", WS_POPUP));
    const HWND child = Recording::Make("c", WS_CHILD | WS_VISIBLE, window);
    InvalidateRect(child, nullptr, TRUE);
    Pump();
    EXPECT_EQ(recording.Count(WM_PAINT), 0);
    ShowWindow(window, SW_SHOW);
    Pump();
    EXPECT_EQ(recording.Count(WM_PAINT), 2);
    EXPECT_EQ(PixelOf(child, 5, 5), kGray);
    recording.Take();
    InvalidateRect(child, nullptr, TRUE);
    MSG message;
    ASSERT_TRUE(PeekMessage(&message, window, WM_PAINT, WM_PAINT, PM_REMOVE));
    EXPECT_EQ(message.hwnd, child);
    EXPECT_TRUE(PeekMessage(&message, window, WM_PAINT, WM_PAINT, PM_REMOVE))
        << "a message that was not served is lost";
    DispatchMessage(&message);
    EXPECT_EQ(recording.Count(WM_ERASEBKGND), 1);
    EXPECT_FALSE(PeekMessage(&message, window, WM_PAINT, WM_PAINT, PM_REMOVE));
}

TEST(WindowPainting, AControlForgetsWhatWasDrawnIntoIt) {
    Recording recording({});
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE));
    const HWND bar = CreateWindowEx(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window,
                                    nullptr, nullptr, nullptr);
    Pump();
    InvalidateRect(bar, nullptr, FALSE);
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(bar, &paint);
    SelectObject(context, GetStockObject(BLACK_BRUSH));
    PatBlt(context, 0, 0, 25, 20, PATCOPY);
    SelectObject(context, GetStockObject(WHITE_BRUSH));
    PatBlt(context, 25, 0, 75, 20, PATCOPY);
    EndPaint(bar, &paint);
    Pump();
    EXPECT_EQ(PixelOf(bar, 24, 19), kBlack);
    EXPECT_EQ(PixelOf(bar, 25, 19), kWhite);
    EXPECT_EQ(PixelOf(bar, 99, 0), kWhite);
    EXPECT_EQ(PixelOf(bar, 100, 0), CLR_INVALID);
    InvalidateRect(bar, nullptr, TRUE);
    UpdateWindow(bar);
    EXPECT_NE(PixelOf(bar, 5, 5), kBlack) << "what was drawn survives erasing";
}

TEST(WindowPainting, HandlesThatAreGoneDraw) {
    Recording recording({});
    const HWND window = Recording::Make("w", WS_POPUP | WS_VISIBLE);
    const HDC context = GetDC(window);
    EXPECT_TRUE(ReleaseDC(window, context));
    EXPECT_FALSE(PatBlt(context, 0, 0, 5, 5, BLACKNESS));
    EXPECT_EQ(SelectObject(context, GetStockObject(BLACK_BRUSH)), nullptr);
    DestroyWindow(window);
    PAINTSTRUCT paint;
    EXPECT_EQ(BeginPaint(window, &paint), nullptr);
    const HDC memory = CreateCompatibleDC(nullptr);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(DeleteDC(memory));
    EXPECT_FALSE(DeleteDC(memory));
}

}  // namespace
