// SPDX-License-Identifier: MIT
// Roots, integrals, table searches and the inlined trigonometry.
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "mathkit/TIntegrator.h"
#include "mathkit/TRootSolver.h"
#include "mathkit/bsearch.h"
#include "mathkit/trig.h"

namespace {

constexpr double pi = 3.14159265358979324;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class function_root : public TNewtonRootSolver {
public:
    std::function<double(double)> value, slope;
    int calls = 0;

    function_root(std::function<double(double)> value, std::function<double(double)> slope)
        : value(std::move(value)),
          slope(std::move(slope)) {}
    double f(double x) override { return ++calls, value(x); }
    double df(double x) override { return ++calls, slope(x); }
    void fdf(double x, double& y, double& dy) override { ++calls, y = value(x), dy = slope(x); }
};

double one(double) {
    return 1;
}

double root_of(function_root& f, bool by_newton, double a, double b, double tol = 1e-12) {
    return by_newton ? f.safe_newton(a, b, tol) : f.brent1(a, b, tol);
}

const struct {
    const char* name;
    std::function<double(double)> value, slope;
    double a, b, root;
    int newton_calls, brent_calls; // the most that may be spent
} root_cases[] = {
    {"line, ends swapped", [](double x) { return x - 0.3; }, one, 1, 0, 0.3, 4, 3},
    {"cosine", [](double x) { return std::cos(x) - x; }, [](double x) { return -std::sin(x) - 1; },
     0, 1, 0.739085133215160642, 7, 8},
    {"zero at the first end", [](double x) { return x * (x - 2); },
     [](double x) { return 2 * x - 2; }, 0, 1, 0, 1, 1},
    {"zero at the second end", [](double x) { return x - 1; }, one, 0, 1, 1, 2, 2},
    {"triple root, flat", [](double x) { return (x - 0.4) * (x - 0.4) * (x - 0.4); },
     [](double x) { return 3 * (x - 0.4) * (x - 0.4); }, 0, 1, 0.4, 85, 110},
    {"flat derivative at the middle", [](double x) { return x * x * x - 0.001; },
     [](double x) { return 3 * x * x; }, -1, 1, 0.1, 14, 17},
    {"pole at an end", [](double x) { return 2 - 1 / (1 - x); },
     [](double x) { return -1 / ((1 - x) * (1 - x)); }, 0, 1 - 2.5e-7, 0.5, 5, 5},
    {"pole just below the middle",
     [](double x) { return x < 0 ? -1 : 4 - 1 / (x + 1e-9) / (x + 1e-9); },
     [](double x) { return x < 0 ? 0 : 2 / (x + 1e-9) / (x + 1e-9) / (x + 1e-9); }, -1, 1,
     0.5 - 1e-9, 15, 50},
    {"jump of the value", [](double x) { return x < 0.6 ? -1.0 : 1.0; }, [](double) { return 0.0; },
     0, 1, 0.6, 44, 44},
    {"derivative that is no number", [](double x) { return x - 0.7; }, [](double) { return nan; },
     0, 1, 0.7, 44, 4},
    {"derivative that is infinite at the middle",
     [](double x) { return std::copysign(std::sqrt(std::fabs(x)), x) + 0.5; },
     [](double x) { return 0.5 / std::sqrt(std::fabs(x)); }, -1, 1, -0.25, 10, 8},
    {"large numbers", [](double x) { return x - 1e200; }, one, 0, 1e300, 1e200, 290, 4},
};

TEST(TRootSolver, FindsTheRootInTheBracket) {
    for (const auto& c : root_cases) {
        const bool triple = c.root == 0.4; // a function flat to rounding around its root
        const double near = triple ? 1e-4 : std::fmax(2e-12, 4e-16 * std::fabs(c.root));
        for (const bool by_newton : {true, false}) {
            function_root f{c.value, c.slope};
            EXPECT_NEAR(root_of(f, by_newton, c.a, c.b), c.root, near) << c.name;
            EXPECT_LE(f.calls, by_newton ? c.newton_calls : c.brent_calls) << c.name;
        }
    }
}

TEST(TRootSolver, AnswersNoNumberWhereThereIsNoSignChange) {
    const std::function<double(double)> hopeless[] = {
        [](double) { return 1.0; }, [](double x) { return x < 0.5 ? -1.0 : nan; },
        [](double x) { return x > 0.4 && x < 0.6 ? nan : x - 0.5; }};
    function_root line{[](double x) { return x - 0.5; }, one};
    function_root jump{[](double x) { return x > 1 ? 1.0 : -1.0; }, one};
    for (const bool by_newton : {true, false}) {
        for (const auto& value : hopeless) {
            function_root f{value, one};
            EXPECT_TRUE(std::isnan(root_of(f, by_newton, 0, 1)));
            EXPECT_LE(f.calls, 3);
        }
        for (const double end : {nan, infinity, -infinity})
            root_of(line, by_newton, end, 1), root_of(line, by_newton, 0, end);
        EXPECT_DOUBLE_EQ(root_of(jump, by_newton, 0, 3, 0), 1) << "down to neighbouring doubles";
    }
    EXPECT_LE(line.calls, 5000) << "it ends, whatever the answer";
}

class function_integral : public TIntegrator {
public:
    std::function<double(double)> value;
    long calls = 0;
    explicit function_integral(std::function<double(double)> value) : value(std::move(value)) {}
    double f(double x) override { return ++calls, value(x); }
};

TEST(TIntegrator, MeetsItsTolerance) {
    const struct {
        const char* name;
        std::function<double(double)> f;
        double a, b;
        int n;
        double integral, error;
        long calls;
    } cases[] = {
        {"short smooth step", [](double x) { return std::exp(x); }, 1, 1.003, 1,
         std::exp(1.003) - std::exp(1.0), 1e-15, 5},
        {"longer smooth step", [](double x) { return std::exp(x); }, 1, 1.1, 1,
         std::exp(1.1) - std::exp(1.0), 1e-15, 9},
        {"whole turn", [](double x) { return 2 + std::cos(x); }, 0, 2 * pi, 36, 4 * pi, 1e-12, 550},
        {"falling ends", [](double x) { return x; }, 2, 0, 3, -2, 1e-14, 13},
        {"kink just inside an end", [](double x) { return std::fabs(x - 0.9999); }, 0, 1, 1,
         0.49990001, 1e-12, 300},
        {"narrow peak", [](double x) { return 1e-5 / (1e-10 + x * x); }, -1, 1, 36,
         2 * std::atan(1e5), 1e-11, 2900},
        {"400 kinks, more than are paid for", [](double x) { return std::fabs(std::sin(200 * x)); },
         0, 2 * pi, 36, 4, 1e-7, 115000},
        {"60 kinks in one step", [](double x) { return std::fabs(std::sin(100 * x)); }, 0, 0.6 * pi,
         1, 1.2, 1e-12, 29000},
        {"pole beside the start", [](double x) { return 1 / ((x + 1e-8) * (x + 1e-8)); }, 0, 1, 36,
         99999999.00000001, 1e-6, 3600},
        {"long", [](double x) { return 1e9 * (2 + std::cos(x)); }, 0, 2 * pi, 36, 4e9 * pi, 1e-5,
         550},
    };
    for (const auto& c : cases) {
        function_integral i(c.f);
        EXPECT_NEAR(i.AdaptiveGauss(c.a, c.b, 1e-12, c.n), c.integral, c.error) << c.name;
        EXPECT_LE(i.calls, c.calls) << c.name;
    }
}

TEST(TIntegrator, EndsForEveryIntegrand) {
    std::mt19937 random(7);
    const std::function<double(double)> hostile[] = {
        [](double) { return nan; },
        [](double x) { return 1 / x; },
        [](double x) { return std::sin(1e9 * x); },
        [](double x) { return x > 3 ? nan : 1; },
        [&](double) { return double(random()); },
    };
    for (const auto& f : hostile) {
        function_integral i(f);
        for (int k = 0; k < 2000; ++k)
            i.AdaptiveGauss(k * 0.003, (k + 1) * 0.003, 1e-12, 1);
        i.AdaptiveGauss(0, 2 * pi, 1e-12, 36);
        i.AdaptiveGauss(0, 2 * pi, 1e-12, 1 << 30);
        EXPECT_LE(i.calls, 1700000);
    }
}

TEST(Bsearch, InterpolatesInEvenAndInDefeatingTables) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> uniform(0, 1);
    for (const unsigned n : {2, 3, 16, 17, 18, 100, 2001}) {
        for (const double power : {0.0, 1.0, 9.0, 40.0}) {
            std::vector<double> xs, ys;
            for (double x = -1; xs.size() < n; ys.push_back(3 * xs.back() + 1)) {
                xs.push_back(x);
                x += power == 0 ? 0.5 : std::pow(uniform(random), power) + 1e-9;
            }
            for (int i = 0; i < int(n); ++i) {
                const double at = xs[std::size_t(i)], below = std::nextafter(at, -10);
                const double between = xs[0] + uniform(random) * (xs.back() - xs[0]);
                for (const auto& [x, error] :
                     {std::pair(at, 1e-9), {below, 1e-9}, {between, 1e-7}}) {
                    const double y = bsearch_list_lookup(int(n), x, xs.data(), ys.data());
                    ASSERT_NEAR(y, 3 * x + 1, error);
                }
                ASSERT_EQ(bsearch_interval(n, at, xs.data()), i);
                ASSERT_EQ(bsearch_interval(n, below, xs.data()), i - 1);
            }
        }
    }
}

TEST(Bsearch, HasAnAnswerForEverything) {
    std::vector<double> xs(40, 20), ys(40); // the second half of xs is a plateau
    std::iota(xs.begin(), xs.begin() + 20, 0);
    std::iota(ys.begin(), ys.end(), 0);
    const auto value = [&](double x, int n = 40) {
        return bsearch_list_lookup(n, x, xs.data(), ys.data());
    };
    const auto interval = [&](double x, unsigned n = 40) {
        return bsearch_interval(n, x, xs.data());
    };
    EXPECT_TRUE(value(-5) == 0 && value(99) == 39 && value(infinity) == 39 && value(19.5) == 19.5);
    EXPECT_TRUE(std::isnan(value(nan)) && std::isnan(value(1, 0)) && value(5, 1) == 0);
    EXPECT_TRUE(interval(-0.1) == -1 && interval(nan) == -1 && interval(20) == 39);
    EXPECT_EQ(interval(1, 0), -1);
    for (std::size_t i = 3; i < 40; i += 5)
        xs[i] = nan;
    for (double x = -1; x < 22; x += 0.25)
        value(x), interval(x); // any answer, but an answer
}

TEST(Trig, TellsAnglesAsTheLibrary) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> angle(-10, 10);
    for (int i = 0; i < 200000; ++i) {
        const double x = i < 1000 ? i * (pi / 8) : angle(random), length = std::exp(angle(random));
        const double y = length * std::sin(x), z = length * std::cos(x);
        ASSERT_NEAR(kit::angle_of(y, z), std::atan2(y, z), 9e-16) << y << " " << z;
    }
    const double odd[] = {0.0, -0.0, 1.0, -1.0, 1e300, -1e-300, infinity, -infinity, nan};
    for (const double y : odd) {
        for (const double x : odd) {
            const double want = std::atan2(y, x), got = kit::angle_of(y, x);
            EXPECT_TRUE(std::isnan(want) ? std::isnan(got) : std::fabs(got - want) < 1e-15)
                << y << " " << x;
        }
    }
}

// Both together are nearly as exact as doubles can be, each alone a little less.
void expect_sine_and_cosine(double x) {
    const long double sine = std::sin(static_cast<long double>(x));
    const long double cosine = std::cos(static_cast<long double>(x));
    double s, c;
    kit::sincos(x, s, c);
    ASSERT_LE(std::fabs(s - sine), 1e-16) << x;
    ASSERT_LE(std::fabs(c - cosine), 1e-16) << x;
    ASSERT_LE(std::fabs(kit::sin(x) - sine), 1.9e-16) << x;
    ASSERT_LE(std::fabs(kit::cos(x) - cosine), 1.9e-16) << x;
}

TEST(Trig, TellsSineAndCosineToTheLastPlaceOf1) {
    std::mt19937_64 random(7);
    for (const double range : {1e-9, 1.0, 7.0, 100.0, kit::sincos_limit, 1e12}) {
        for (int i = 0; i < 100'000; ++i)
            expect_sine_and_cosine(range * (static_cast<double>(random()) * 0x1p-63 - 1));
    }
    // Next to the multiples of pi/4, where the quadrant and the reduction are decided.
    for (int n = -8000; n <= 8000; ++n) {
        const double x = n * 0.78539816339744830962;
        for (const double near : {x, std::nextafter(x, 1e9), std::nextafter(x, -1e9)})
            expect_sine_and_cosine(near);
        // Above 1 an inverse function would give no number.
        ASSERT_LE(std::fmax(std::fabs(kit::sin(x)), std::fabs(kit::cos(x))), 1) << n;
    }
    EXPECT_TRUE(kit::sin(0.0) == 0 && kit::cos(0.0) == 1);
    for (const double x : {infinity, -infinity, nan}) {
        double s, c;
        kit::sincos(x, s, c);
        EXPECT_TRUE(std::isnan(s + kit::sin(x)) && std::isnan(c + kit::cos(x)));
    }
}

} // namespace
