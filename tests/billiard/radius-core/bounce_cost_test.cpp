// SPDX-License-Identifier: MIT
// What a bounce may cost: looks at the curve, and no allocation. A program of its own, since it
// replaces the operator new.
#include "billiard/radius-core/TBilliard.h"
#include "tests/billiard/radius-core/many_orbits.h"
#include "tests/counting_curve.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

namespace {

long allocations = 0;

} // namespace

void* operator new(std::size_t bytes) {
    ++allocations;
    if (void* p = std::malloc(bytes == 0 ? 1 : bytes)) return p;
    throw std::bad_alloc();
}
// The compiler does not see that these belong together.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}

namespace {

TEST(Bounce, AsksTheCurveAtFewPoints) {
    const auto mean = [](const std::string& c) {
        auto* counter = new counting_curve(new_reference_curve(c));
        TBilliardMap map(counter);
        counter->points = 0;
        const int bounces = on_many_orbits(map, 250, [&] {
            counter->forget();
            map.iterate();
        });
        EXPECT_GT(bounces, 9000) << c;
        return double(counter->points) / double(bounces);
    };
    for (const char* c : convex_curves)
        EXPECT_LE(mean(c), 5.2) << c;
    for (const char* c : other_curves)
        EXPECT_LE(mean(c), 8.5) << c;
}

TEST(Bounce, AllocatesNothing) {
    for (const char* c :
         {"OvalA 5", "OvalC 2 3", "Triangle 60 70", "Stadium 1", "Fourier 3 5 0 0 0 1 0.5",
          "Formula 3+erf(cos(2*t))", "Formula 3+cos(2*t)/(9+sqr(cos(t)))+(2+cos(t))^sin(t)/99"}) {
        TBilliardMap map(new_reference_curve(c));
        map.setPoint(0.3, 0.4);
        double S, P, x, y;
        const long before = allocations;
        for (int i = 0; i < 2000; ++i) {
            map.iterate();
            map.getPoint(S, P);
            map.getXY(x, y);
            map.setPoint(S, P);
            x += map.F->R(x) + map.F->dR(x) + map.F->ddR(x) + map.F->curvatureNumerator(x);
        }
        EXPECT_EQ(allocations, before) << c;
    }
}

} // namespace
