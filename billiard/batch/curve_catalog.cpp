// SPDX-License-Identifier: MIT
// The one table of the curves that a command line can name: parameters, limits, texts, classes.
#include "billiard/batch/curve_catalog.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/nearest_name.h"
#include "billiard/batch/user_words.h"

namespace batch {

namespace {

using values = const std::vector<double>&;

template<class Curve, class... Values>
std::unique_ptr<TRadiusFunction> checked(Values... v) {
    auto curve = std::make_unique<Curve>();
    if (!curve->set(v...)) return nullptr;
    return curve;
}

std::unique_ptr<TRadiusFunction> triangle(values degrees) {
    auto curve = std::make_unique<TTriangleFunction>();
    if (!curve->setDegrees(degrees[0], degrees[1])) return nullptr;
    return curve;
}

} // namespace

// clang-format off
const std::vector<curve_kind>& curve_catalog() {
    using enum curve_syntax;
    static const std::vector<curve_kind> catalog = {
        {.name = "ellipse",
         .shape = "R = 1 / sqrt(1 + (e cos(phi))^2)",
         .syntax = parameters,
         .parameters = {{"e", 0.5}},
         .limit = "any e",
         .build = [](values v) { return checked<TEllipseFunction>(v[0]); }},

        {.name = "oval-a",
         .shape = "R = c + cos(2 phi)",
         .syntax = parameters,
         .parameters = {{"c", 5}},
         .limit = "c > 1",
         .build = [](values v) { return checked<TOvalAFunction>(v[0]); }},

        {.name = "oval-b",
         .shape = "R = 1 + e cos(phi)",
         .syntax = parameters,
         .parameters = {{"e", 0.3}},
         .limit = "-1 < e < 1",
         .build = [](values v) { return checked<searched<TOvalBFunction>>(v[0]); }},

        {.name = "oval-c",
         .shape = "R = c + cos(n phi)",
         .syntax = parameters,
         .parameters = {{"c", 2}, {"n", 3, true}},
         .limit = "c > 1, n a whole number",
         .build = [](values v) {
             return checked<TGenOvalFunction>(v[0], static_cast<int>(v[1]));
         }},

        {.name = "stadium",
         .shape = "two sides of length 2 z, closed by semicircles of radius 1",
         .syntax = parameters,
         .parameters = {{"z", 1}},
         .limit = "any z, of which the modulus counts",
         .build = [](values v) { return checked<TStadiumFunction>(v[0]); }},

        {.name = "triangle",
         .shape = "area 1, two of its angles in degrees",
         .syntax = parameters,
         .parameters = {{"alpha", 60}, {"beta", 70}},
         .limit = "alpha > 0, beta > 0, alpha + beta < 180",
         .build = triangle},

        {.name = "fourier",
         .shape = "fourier:4,0.3@0,0.1@1.5 is R = 4 + 0.3 cos(phi + 0) + 0.1 cos(2 phi + 1.5)",
         .syntax = fourier,
         .parameters = {},
         .limit = "R > 0 all round",
         .build = nullptr},

        {.name = "formula",
         .shape = "formula:5+sin(t) is R(t), with further names by --let",
         .syntax = formula,
         .parameters = {},
         .limit = "R > 0 all round",
         .build = nullptr},
    };
    return catalog;
}
// clang-format on

const curve_kind& find_curve(std::string_view name) {
    std::vector<std::string_view> names;
    for (const curve_kind& kind : curve_catalog()) {
        if (name == kind.name) return kind;
        names.emplace_back(kind.name);
    }
    throw usage_error("there is no curve " + in_quotes(name) + name_hint(name, names));
}

} // namespace batch
