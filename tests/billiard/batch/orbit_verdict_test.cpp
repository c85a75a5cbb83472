// SPDX-License-Identifier: MIT
// Verdicts on orbits: against the tangent map itself, tori, the stadium, and the mean free path.
#include "billiard/batch/orbit_verdict.h"

#include "billiard/batch/curve_facts.h"
#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/tangent_map.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace batch;

constexpr double pi = 3.14159265358979324;

std::vector<phase_point> random_starts(TBilliardMap& map, int count) {
    std::mt19937_64 random(20240607);
    std::uniform_real_distribution<double> share(0, 1);
    std::vector<phase_point> starts;
    for (int i = 0; i < count; ++i) {
        map.setPoint(share(random), 2 * share(random) - 1);
        starts.push_back({map.phi, map.alpha});
    }
    return starts;
}

std::vector<orbit_verdict> verdicts_of(TBilliardMap& map, const std::vector<phase_point>& starts,
                                       std::int64_t n) {
    std::vector<orbit_verdict> verdicts(starts.size());
    work_monitor monitor;
    judge(map, starts, n, verdicts, monitor);
    return verdicts;
}

struct mean {
    double value = 0, error = 0; ///< the standard error of the value

    mean(const std::vector<orbit_verdict>& verdicts, double orbit_verdict::*column) {
        const auto count = static_cast<double>(verdicts.size());
        for (const orbit_verdict& v : verdicts)
            value += v.*column / count;
        for (const orbit_verdict& v : verdicts)
            error += (v.*column - value) * (v.*column - value) / count;
        error = std::sqrt(error / count);
    }
};

TEST(OrbitVerdict, IsWhatTheTangentMapMakesOfTheVector) {
    for (const char* c : {"Ellipse 1", "OvalA 2", "OvalC 60 7", "Stadium 1", "Triangle 60 70",
                          "Fourier 3 5 0 0 0 1 0.5", "Formula 5+sin(t)"}) {
        TBilliardMap map(new_reference_curve(c));
        const int n = 30;
        for (const phase_point& start : random_starts(map, 20)) {
            const orbit_verdict found = verdicts_of(map, {start}, n).front();
            double x = std::sqrt(0.5), y = x, flown = 0, advance = 0;
            map.setPhiAlpha(start.phi, start.alpha);
            for (int i = 0; i < n; ++i) {
                const double phi = map.phi, alpha = map.alpha, share = map.arcShare(phi);
                map.iterate();
                const chord path(mirror_at(*map.F, phi, alpha),
                                 mirror_at(*map.F, map.phi, map.alpha));
                const matrix2 m = tangent_of_section(path, map.circumference.length);
                const double old_x = x;
                x = m.xx * old_x + m.xy * y;
                y = m.yx * old_x + m.yy * y;
                flown += path.length;
                const double step = map.arcShare(map.phi) - share;
                advance += step - std::floor(step);
            }
            EXPECT_NEAR(found.lyapunov, std::log(std::hypot(x, y)) / n, 1e-6) << c;
            EXPECT_NEAR(found.rotation, advance / n, 1e-11) << c;
            EXPECT_NEAR(found.chord, flown / n, 1e-12 * flown) << c;
            EXPECT_EQ(found.bounces, n);
        }
    }
}

TEST(OrbitVerdict, ExponentsOfToriFallWithTheNumberOfBounces) {
    for (const char* c : {"Ellipse 0", "Ellipse 0.5", "Ellipse 3", "Triangle 60 60"}) {
        TBilliardMap map(new_reference_curve(c));
        const auto starts = random_starts(map, 60);
        for (const int n : {100, 1000, 10000}) {
            const auto verdicts = verdicts_of(map, starts, n);
            const auto chaotic = std::count_if(verdicts.begin(), verdicts.end(), [&](auto& v) {
                return !(v.lyapunov <= chaos_threshold(n));
            });
            EXPECT_LE(chaotic, n > 100 ? 0 : 1) << c << " " << n;
        }
    }
}

TEST(OrbitVerdict, ACircleTurnsByItsAngle) {
    TBilliardMap map(new_reference_curve("Ellipse 0"));
    for (const double alpha : {1e-3, 0.7, pi / 2, 3.1}) {
        const orbit_verdict v = verdicts_of(map, {{6.2, alpha}}, 1000).front();
        EXPECT_NEAR(v.rotation, alpha / pi, 1e-12);
        EXPECT_NEAR(v.chord, 2 * std::sin(alpha), 1e-11);
    }
}

TEST(OrbitVerdict, TheStadiumHasOneExponent) {
    // 0.43 per unit of length where the semicircles have the radius 1 and the sides the length 2,
    // as known since G. Benettin and J.-M. Strelcyn, Phys. Rev. A 17 (1978) 773.
    TBilliardMap map(new_reference_curve("Stadium 1"));
    const auto verdicts = verdicts_of(map, random_starts(map, 30), 30000);
    for (const orbit_verdict& v : verdicts) // some stay between the parallel sides for long
        EXPECT_NEAR(v.lyapunov, 0.92, 0.15);
    const double per_bounce = mean(verdicts, &orbit_verdict::lyapunov).value;
    const double chord = mean(verdicts, &orbit_verdict::chord).value;
    EXPECT_NEAR(per_bounce / chord, 0.43, 0.005);
}

TEST(OrbitVerdict, TheMeanChordIsThatOfAreaAndCircumference) {
    for (const char* c : {"Stadium 0.25", "Stadium 0.5", "Stadium 1", "Stadium 2", "Stadium 4",
                          "OvalA 1.5", "OvalA 2", "OvalC 1.5 3", "OvalC 2 5", "OvalB 0.9"}) {
        TBilliardMap map(new_reference_curve(c));
        const mean chord(verdicts_of(map, random_starts(map, 400), 200), &orbit_verdict::chord);
        EXPECT_NEAR(chord.value, facts_of(map).mean_chord, 3 * chord.error) << c;
        EXPECT_LT(chord.error, 0.02 * chord.value) << c;
    }
}

TEST(OrbitVerdict, JudgesAFailedOrbitByWhatThereWas) {
    TBilliardMap narrow(new_reference_curve("Ellipse 1e4"));
    const orbit_verdict none = verdicts_of(narrow, {{pi / 2, 1e-13}}, 10).front();
    EXPECT_TRUE(std::isnan(none.lyapunov) && std::isnan(none.rotation) && std::isnan(none.chord));
    EXPECT_EQ(none.bounces, 0);

    TBilliardMap holed(new_reference_curve("Formula 1+sqrt(t-0.01)-sqrt(t-0.01)"));
    const auto verdicts = verdicts_of(holed, {{1, 0.7}, {1, 0.8}}, 1000);
    for (const orbit_verdict& v : verdicts) {
        EXPECT_GT(v.bounces, 3);
        EXPECT_LT(v.bounces, 1000);
        EXPECT_TRUE(std::isfinite(v.lyapunov) && v.rotation > 0.2 && v.chord > 1.2);
    }
}

TEST(OrbitVerdict, IsTheSameWhateverWasJudgedBefore) {
    // A bounce goes on from what the last one knew where it is called with the same two numbers.
    TBilliardMap map(new_reference_curve("OvalA 2")), fresh(new_reference_curve("OvalA 2"));
    for (int i = 0; i < 20; ++i) {
        verdicts_of(map, {{0.3 * i, 1}}, 50);
        const phase_point start = {map.lastDeparture().phi, map.lastDeparture().alpha};
        fresh.forgetDeparture();
        EXPECT_EQ(verdicts_of(map, {start}, 300).front().lyapunov,
                  verdicts_of(fresh, {start}, 300).front().lyapunov);
    }
}

TEST(OrbitVerdict, StopsWhenTold) {
    TBilliardMap map(new_reference_curve("Ellipse 0"));
    std::vector<orbit_verdict> verdicts(1);
    work_monitor monitor;
    monitor.stop = true;
    judge(map, std::vector<phase_point>{{1, 1}}, std::int64_t(1) << 60, verdicts, monitor);
    EXPECT_EQ(monitor.bounces, 0);
}

TEST(BinomialError, IsTheStandardErrorOfAShare) {
    EXPECT_DOUBLE_EQ(binomial_error(50, 200), std::sqrt(0.25 * 0.75 / 200));
    EXPECT_EQ(binomial_error(0, 200), 0);
}

} // namespace
