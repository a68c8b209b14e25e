#include "studentt.h"

#include <cmath>
#include <initializer_list>

namespace ostrelcell {

namespace {

// The continued fraction of the incomplete beta function, from its front to the back, by the ratio of neighbouring
// convergents.
double betaFraction(double x, double a, double b) {
    constexpr double tiny = 1e-300;
    double c = 1;
    double d = 1 - (a + b) * x / (a + 1);
    d = 1 / (std::fabs(d) < tiny ? tiny : d);
    double fraction = d;
    for (int m = 1; m <= 400; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
        double change = 1;
        for (double term : {even, odd}) {
            d = 1 + term * d;
            d = 1 / (std::fabs(d) < tiny ? tiny : d);
            c = 1 + term / c;
            c = std::fabs(c) < tiny ? tiny : c;
            change = c * d;
            fraction *= change;
        }
        if (std::fabs(change - 1) < 1e-14)
            break;
    }
    return fraction;
}

double incompleteBeta(double x, double a, double b) {
    if (x <= 0)
        return 0;
    if (x >= 1)
        return 1;
    const double front =
        std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) + b * std::log(1 - x));
    // The fraction converges fast on this side only.
    if (x < (a + 1) / (a + b + 2))
        return front * betaFraction(x, a, b) / a;
    return 1 - front * betaFraction(1 - x, b, a) / b;
}

double probabilityWithin(double t, double freedom) {
    return 1 - incompleteBeta(freedom / (freedom + t * t), freedom / 2, 0.5);
}

}  // namespace

double studentT(double confidence, double freedom) {
    double low = 0;
    double high = 1;
    while (probabilityWithin(high, freedom) < confidence && high < 1e9)
        high *= 2;
    for (int step = 0; step < 60; ++step) {
        const double middle = (low + high) / 2;
        (probabilityWithin(middle, freedom) < confidence ? low : high) = middle;
    }
    return (low + high) / 2;
}

}  // namespace ostrelcell
