#include "examples/progress/long_job.h"

namespace example {
namespace {

constexpr int kIterations = 4000;

/// How many steps z -> z^2 + c stays near, at most kIterations.
int StepsNear(double real, double imaginary) {
    double x = 0;
    double y = 0;
    int steps = 0;
    while (steps < kIterations && x * x + y * y <= 4) {
        const double next = x * x - y * y + real;
        y = 2 * x * y + imaginary;
        x = next;
        ++steps;
    }
    return steps;
}

}  // namespace

void LongJob::Step() {
    if (IsFinished()) {
        return;
    }
    const double imaginary = 2.4 * m_row / kHeight - 1.2;
    std::uint8_t* row = &m_pixels[static_cast<std::size_t>(m_row) * kWidth];
    for (int column = 0; column < kWidth; ++column) {
        const int steps = StepsNear(3.6 * column / kWidth - 2.5, imaginary);
        row[column] = static_cast<std::uint8_t>(steps == kIterations ? 0 : 255 - steps * 8 % 200);
    }
    ++m_row;
}

}  // namespace example
