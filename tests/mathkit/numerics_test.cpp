// SPDX-License-Identifier: MIT
// Roots, integrals, table searches and the inlined trigonometry.
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "mathkit/TIntegrator.h"
#include "mathkit/TRootSolver.h"
#include "mathkit/bsearch.h"
#include "mathkit/fast_trig.h"

namespace {

constexpr double pi = 3.14159265358979324;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class function_root : public TNewtonRootSolver {
public:
    std::function<double(double)> value, slope;
    int calls = 0;

    double f(double x) override { return ++calls, value(x); }
    double df(double x) override { return ++calls, slope(x); }
    void fdf(double x, double& y, double& dy) override {
        ++calls;
        y = value(x);
        dy = slope(x);
    }
};

struct root_case {
    const char* name;
    std::function<double(double)> value, slope;
    double a, b, root;
    int newton_calls, brent_calls; // the most that may be spent
};

const root_case root_cases[] = {
    {"line", [](double x) { return x - 0.3; }, [](double) { return 1.0; }, 0, 1, 0.3, 5, 6},
    {"ends swapped", [](double x) { return x - 0.3; }, [](double) { return 1.0; }, 1, 0, 0.3, 5, 6},
    {"cosine", [](double x) { return std::cos(x) - x; }, [](double x) { return -std::sin(x) - 1; },
     0, 1, 0.739085133215160642, 9, 12},
    {"zero at the first end", [](double x) { return x * (x - 2); },
     [](double x) { return 2 * x - 2; }, 0, 1, 0, 2, 2},
    {"zero at the second end", [](double x) { return x - 1; }, [](double) { return 1.0; }, 0, 1, 1,
     2, 2},
    {"triple root, flat", [](double x) { return (x - 0.4) * (x - 0.4) * (x - 0.4); },
     [](double x) { return 3 * (x - 0.4) * (x - 0.4); }, 0, 1, 0.4, 200, 200},
    {"flat derivative at the middle", [](double x) { return x * x * x - 0.001; },
     [](double x) { return 3 * x * x; }, -1, 1, 0.1, 30, 30},
    {"pole at an end", [](double x) { return 2 - 1 / (1 - x); },
     [](double x) { return -1 / ((1 - x) * (1 - x)); }, 0, 1 - 2.5e-7, 0.5, 60, 80},
    {"corner", [](double x) { return x < 0.2 ? 10 * (x - 0.2) - 1e-3 : 0.1 * (x - 0.2) - 1e-3; },
     [](double x) { return x < 0.2 ? 10 : 0.1; }, 0, 1, 0.21, 60, 60},
    {"jump of the value", [](double x) { return x < 0.6 ? -1.0 : 1.0; }, [](double) { return 0.0; },
     0, 1, 0.6, 120, 120},
    {"derivative that is no number", [](double x) { return x - 0.7; }, [](double) { return nan; },
     0, 1, 0.7, 120, 120},
    {"derivative of the wrong sign", [](double x) { return x - 0.7; }, [](double) { return -1.0; },
     0, 1, 0.7, 120, 120},
    {"derivative that is infinite at the middle",
     [](double x) { return std::copysign(std::sqrt(std::fabs(x)), x) + 0.5; },
     [](double x) { return 0.5 / std::sqrt(std::fabs(x)); }, -1, 1, -0.25, 30, 30},
    {"large numbers", [](double x) { return x - 1e200; }, [](double) { return 1.0; }, 0, 1e300,
     1e200, 700, 700},
};

TEST(TRootSolver, finds_the_root_in_the_bracket) {
    for (const root_case& c : root_cases) {
        const double near = std::fmax(2e-12, 4e-16 * std::fabs(c.root));
        const bool triple = c.root == 0.4; // a function flat to rounding around its root
        function_root r;
        r.value = c.value;
        r.slope = c.slope;
        double a = c.a;
        double b = c.b;
        EXPECT_NEAR(r.safe_newton(a, b, 1e-12), c.root, triple ? 1e-4 : near) << c.name;
        EXPECT_LE(r.calls, c.newton_calls) << c.name;
        a = c.a;
        b = c.b;
        r.calls = 0;
        EXPECT_NEAR(r.brent1(a, b, 1e-12), c.root, triple ? 1e-4 : near) << c.name;
        EXPECT_LE(r.calls, c.brent_calls) << c.name;
    }
}

TEST(TRootSolver, answers_no_number_where_there_is_no_sign_change) {
    const std::function<double(double)> hopeless[] = {
        [](double) { return 1.0; }, [](double) { return nan; },
        [](double x) { return x < 0.5 ? -1.0 : nan; },
        [](double x) { return x > 0.4 && x < 0.6 ? nan : x - 0.5; }};
    for (const auto& f : hopeless) {
        function_root r;
        r.value = f;
        r.slope = [](double) { return 1.0; };
        double a = 0;
        double b = 1;
        EXPECT_TRUE(std::isnan(r.safe_newton(a, b, 1e-12)));
        a = 0;
        b = 1;
        EXPECT_TRUE(std::isnan(r.brent1(a, b, 1e-12)));
        EXPECT_LE(r.calls, 50);
    }
}

TEST(TRootSolver, a_bracket_may_end_in_what_is_no_number) {
    function_root r;
    r.value = [](double x) { return x - 0.5; };
    r.slope = [](double) { return 1.0; };
    for (const double end : {nan, infinity, -infinity}) {
        double a = end;
        double b = 1;
        r.safe_newton(a, b, 1e-12);
        a = 0;
        b = end;
        r.brent1(a, b, 1e-12);
    }
    EXPECT_LE(r.calls, 20000) << "it ends, whatever the answer";
}

class function_integral : public TIntegrator {
public:
    std::function<double(double)> value;
    long calls = 0;
    double f(double x) override { return ++calls, value(x); }
};

TEST(TIntegrator, meets_its_tolerance) {
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
        {"whole turn", [](double x) { return 2 + std::cos(x); }, 0, 2 * pi, 36, 4 * pi, 1e-12, 700},
        {"falling ends", [](double x) { return x; }, 2, 0, 3, -2, 1e-14, 20},
        {"kink", [](double x) { return std::fabs(x - 0.123456789); }, 0, 1, 36,
         0.5 * (0.123456789 * 0.123456789 + 0.876543211 * 0.876543211), 1e-11, 2000},
        {"kink just inside an end", [](double x) { return std::fabs(x - 0.9999); }, 0, 1, 1,
         0.49990001, 1e-12, 2000},
        {"jump", [](double x) { return x < 0.7 ? 1.0 : 3.0; }, 0, 1, 1, 1.6, 1e-12, 2000},
        {"narrow peak", [](double x) { return 1e-5 / (1e-10 + x * x); }, -1, 1, 36,
         2 * std::atan(1e5), 1e-11, 4000},
        {"400 kinks, more than are paid for", [](double x) { return std::fabs(std::sin(200 * x)); },
         0, 2 * pi, 36, 4, 1e-7, 115000},
        {"long", [](double x) { return 1e9 * (2 + std::cos(x)); }, 0, 2 * pi, 36, 4e9 * pi, 1e-5,
         20000},
    };
    for (const auto& c : cases) {
        function_integral i;
        i.value = c.f;
        EXPECT_NEAR(i.AdaptiveGauss(c.a, c.b, 1e-12, c.n), c.integral, c.error) << c.name;
        EXPECT_LE(i.calls, c.calls) << c.name;
    }
}

TEST(TIntegrator, ends_for_every_integrand) {
    std::mt19937 random(7);
    const std::function<double(double)> hostile[] = {
        [](double) { return nan; },
        [](double) { return infinity; },
        [](double x) { return 1 / x; },
        [](double x) { return std::sin(1e9 * x); },
        [](double x) { return std::tan(1000 * x); },
        [](double x) { return x > 3 ? nan : 1; },
        [](double) { return 1e300; },
        [&](double) { return double(random()); },
    };
    for (const auto& f : hostile) {
        function_integral i;
        i.value = f;
        for (int k = 0; k < 2000; ++k)
            i.AdaptiveGauss(k * 0.003, (k + 1) * 0.003, 1e-12, 1);
        i.AdaptiveGauss(0, 2 * pi, 1e-12, 36);
        i.AdaptiveGauss(0, 2 * pi, 1e-12, 1 << 30);
        EXPECT_LE(i.calls, 800000);
    }
}

TEST(bsearch, interpolates_in_even_and_in_defeating_tables) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> uniform(0, 1);
    for (const int n : {2, 3, 15, 16, 17, 18, 33, 100, 2001}) {
        for (const double power : {0.0, 1.0, 9.0, 40.0}) {
            std::vector<double> xs, ys;
            double x = -1;
            for (int i = 0; i < n; ++i) {
                xs.push_back(x);
                ys.push_back(3 * x + 1);
                x += power == 0 ? 0.5 : std::pow(uniform(random), power) + 1e-9;
            }
            for (int i = 0; i < n; ++i) {
                const double at = xs[std::size_t(i)];
                ASSERT_NEAR(bsearch_list_lookup(n, at, xs.data(), ys.data()), 3 * at + 1, 1e-9);
                ASSERT_EQ(bsearch_interval(unsigned(n), at, xs.data()), i);
                const double below = std::nextafter(at, -10);
                ASSERT_NEAR(bsearch_list_lookup(n, below, xs.data(), ys.data()), 3 * at + 1, 1e-9);
                ASSERT_EQ(bsearch_interval(unsigned(n), below, xs.data()), i - 1);
                const double somewhere = xs[0] + uniform(random) * (xs.back() - xs[0]);
                ASSERT_NEAR(bsearch_list_lookup(n, somewhere, xs.data(), ys.data()),
                            3 * somewhere + 1, 1e-7);
            }
        }
    }
}

TEST(bsearch, has_an_answer_for_everything) {
    std::vector<double> xs, ys;
    for (int i = 0; i < 40; ++i) {
        xs.push_back(i < 20 ? i : 20); // a plateau
        ys.push_back(i);
    }
    EXPECT_EQ(bsearch_list_lookup(40, -5, xs.data(), ys.data()), 0);
    EXPECT_EQ(bsearch_list_lookup(40, 99, xs.data(), ys.data()), 39);
    EXPECT_EQ(bsearch_list_lookup(40, infinity, xs.data(), ys.data()), 39);
    EXPECT_EQ(bsearch_list_lookup(40, 19.5, xs.data(), ys.data()), 19.5);
    EXPECT_TRUE(std::isnan(bsearch_list_lookup(40, nan, xs.data(), ys.data())));
    EXPECT_TRUE(std::isnan(bsearch_list_lookup(0, 1, xs.data(), ys.data())));
    EXPECT_EQ(bsearch_list_lookup(1, 5, xs.data(), ys.data()), 0);
    EXPECT_EQ(bsearch_interval(40, -0.1, xs.data()), -1);
    EXPECT_EQ(bsearch_interval(40, nan, xs.data()), -1);
    EXPECT_EQ(bsearch_interval(40, 20, xs.data()), 39);
    EXPECT_EQ(bsearch_interval(0, 1, xs.data()), -1);
    // Tables that hold what is no number: any answer, but an answer.
    for (std::size_t i = 3; i < 40; i += 5)
        xs[i] = nan;
    for (double x = -1; x < 22; x += 0.25) {
        bsearch_list_lookup(40, x, xs.data(), ys.data());
        bsearch_interval(40, x, xs.data());
    }
}

TEST(fast_trig, is_as_exact_as_a_bounce_can_use) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> angle(-10, 10);
    for (int i = 0; i < 200000; ++i) {
        const double x = i < 1000 ? i * (pi / 8) : angle(random);
        const double length = std::exp(angle(random));
        const double y = length * std::sin(x);
        const double z = length * std::cos(x);
        ASSERT_NEAR(fast_trig::angle_of(y, z), std::atan2(y, z), 9e-16) << y << " " << z;
    }
    const double odd[] = {0.0, -0.0, 1.0, -1.0, 1e300, -1e-300, infinity, -infinity, nan};
    for (const double y : odd) {
        for (const double x : odd) {
            const double want = std::atan2(y, x);
            const double got = fast_trig::angle_of(y, x);
            EXPECT_TRUE(std::isnan(want) ? std::isnan(got) : std::fabs(got - want) < 1e-15)
                << y << " " << x;
        }
    }
}

} // namespace
