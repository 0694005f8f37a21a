#pragma once

#include <platen/platform/win32.h>

/// Points, sizes and rectangles that pass for the system's own records. Units are the caller's.

struct CPoint : POINT {
    constexpr CPoint() : POINT{0, 0} {}
    constexpr CPoint(int left, int top) : POINT{left, top} {}
    constexpr CPoint(const POINT& point) : POINT(point) {}  // NOLINT(google-explicit-constructor)

    friend constexpr bool operator==(const CPoint& left, const CPoint& right) {
        return left.x == right.x && left.y == right.y;
    }
};

struct CSize : SIZE {
    constexpr CSize() : SIZE{0, 0} {}
    constexpr CSize(int width, int height) : SIZE{width, height} {}
    constexpr CSize(const SIZE& size) : SIZE(size) {}  // NOLINT(google-explicit-constructor)

    friend constexpr bool operator==(const CSize& left, const CSize& right) {
        return left.cx == right.cx && left.cy == right.cy;
    }
};

/// Right and bottom lie just outside.
struct CRect : RECT {
    constexpr CRect() : RECT{0, 0, 0, 0} {}
    constexpr CRect(int leftEdge, int topEdge, int rightEdge, int bottomEdge) : RECT{} {
        left = leftEdge;
        top = topEdge;
        right = rightEdge;
        bottom = bottomEdge;
    }
    constexpr CRect(const RECT& rect) : RECT(rect) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] constexpr int Width() const { return right - left; }
    [[nodiscard]] constexpr int Height() const { return bottom - top; }
    [[nodiscard]] constexpr CSize Size() const { return {Width(), Height()}; }
    [[nodiscard]] constexpr CPoint TopLeft() const { return {left, top}; }

    operator LPRECT() { return this; }         // NOLINT(google-explicit-constructor)
    operator LPCRECT() const { return this; }  // NOLINT(google-explicit-constructor)

    friend constexpr bool operator==(const CRect& first, const CRect& second) {
        return first.left == second.left && first.top == second.top &&
               first.right == second.right && first.bottom == second.bottom;
    }
};
