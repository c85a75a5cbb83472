// SPDX-License-Identifier: MIT
// Typed formulas beside the same written in C++, and beside a well-known formula parser.
#include "bench/figure_table.h"
#include "billiard/radius-core/TSymbolicRadius.h"
#include "mathkit/trig.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <string>

namespace {

using namespace bench;

/// Angles over one turn, in an order that no branch can learn.
const std::array<double, 512>& angles() {
    static const std::array<double, 512> all = [] {
        std::array<double, 512> a{};
        for (std::size_t i = 0; i < a.size(); ++i) {
            const double turn = static_cast<double>(i) * 0.6180339887498949;
            a[i] = 2 * std::numbers::pi * (turn - std::floor(turn));
        }
        return a;
    }();
    return all;
}

struct radius_and_slope {
    double r, dr;
};

/// Sums over all angles what `value` gives, so that nothing of it can be left out.
template<class Value>
void add_benchmark(const std::string& name, Value value) {
    benchmark::RegisterBenchmark(name.c_str(), [value](benchmark::State& state) {
        for (auto _ : state) {
            double sum = 0;
            for (const double t : angles())
                sum += value(t);
            benchmark::DoNotOptimize(sum);
        }
    });
}

/// The formula as muParser takes it: sqr is not among its functions.
std::shared_ptr<mu::Parser> mu_parser(const std::string& formula,
                                      const std::shared_ptr<double>& t) {
    auto parser = std::make_shared<mu::Parser>();
    parser->DefineVar("t", t.get());
    parser->DefineFun("sqr", [](double x) { return x * x; });
    parser->SetExpr(formula);
    return parser;
}

/// The lambdas come as plain functions: whoever evaluates a curve point by point calls it, and a
/// lambda that melts into the loop of the benchmark would be another task.
void add_formula(figure_table& table, const std::string& formula, double (*native)(double),
                 radius_and_slope (*both)(double)) {
    const std::shared_ptr<TRadiusFunction> curve =
        std::make_shared<symbolic::TSymbolicRadius>(formula.c_str());
    add_benchmark(formula + "/R", [curve](double t) { return curve->R(t); });
    add_benchmark(formula + "/native R", native);
    add_benchmark(formula + "/both", [curve](double t) {
        double s, c, r, dr; // a bounce has sine and cosine at hand; here they count
        kit::sincos(t, s, c);
        curve->value_and_slope(t, s, c, r, dr);
        return r + dr;
    });
    add_benchmark(formula + "/native both", [both](double t) {
        const radius_and_slope v = both(t);
        return v.r + v.dr;
    });
    const auto t_cell = std::make_shared<double>(0);
    const auto parser = mu_parser(formula, t_cell);
    add_benchmark(formula + "/muParser", [parser, t_cell](double t) {
        *t_cell = t;
        return parser->Eval();
    });

    const std::string name = formula.size() > 30 ? formula.substr(0, 27) + "..." : formula;
    table.ratio(name + ": R, in times of C++", formula + "/R", formula + "/native R", at_most(1.3));
    table.ratio(name + ": R with R', in times of C++", formula + "/both", formula + "/native both",
                at_most(1.6));
    table.ratio(name + ": R faster than muParser", formula + "/muParser", formula + "/R",
                at_least(1));
    table.ratio(name + ": R with R' faster than muParser's R", formula + "/muParser",
                formula + "/both", at_least(1));
}

double square(double x) {
    return x * x;
}

} // namespace

int main(int argc, char** argv) {
    figure_table table;
    add_formula(
        table, "5+sin(t)", [](double t) { return 5 + std::sin(t); },
        [](double t) {
            return radius_and_slope{5 + std::sin(t), std::cos(t)};
        });
    add_formula(
        table, "2+cos(log(2+cos(t)))",
        [](double t) { return 2 + std::cos(std::log(2 + std::cos(t))); },
        [](double t) {
            const double inner = 2 + std::cos(t), logarithm = std::log(inner);
            return radius_and_slope{2 + std::cos(logarithm),
                                    std::sin(logarithm) * std::sin(t) / inner};
        });
    add_formula(
        table, "3+0.1*sin(3*t)+0.2*cos(2*t)*exp(-sqr(sin(t)))/(1+sqr(cos(t)))+0.05*sin(7*t)",
        [](double t) {
            return 3 + 0.1 * std::sin(3 * t) +
                   0.2 * std::cos(2 * t) * std::exp(-square(std::sin(t))) /
                       (1 + square(std::cos(t))) +
                   0.05 * std::sin(7 * t);
        },
        [](double t) {
            const double s = std::sin(t), c = std::cos(t), c2 = std::cos(2 * t);
            const double below = 1 + square(c), bell = 0.2 * std::exp(-square(s)) / below;
            const double r = 3 + 0.1 * std::sin(3 * t) + c2 * bell + 0.05 * std::sin(7 * t);
            const double dr = 0.3 * std::cos(3 * t) + 0.35 * std::cos(7 * t) +
                              bell * (-2 * std::sin(2 * t) + c2 * 2 * s * c * (1 / below - 1));
            return radius_and_slope{r, dr};
        });
    return table.run(argc, argv);
}
