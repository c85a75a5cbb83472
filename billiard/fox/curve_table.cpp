// SPDX-License-Identifier: MIT
// The one table of the curves that the "Function" menu offers: menu entry, dialog, texts, class.
#include "billiard/fox/curve_table.h"

#include "billiard/fox/FMain.h"
#include "billiard/radius-core/TSymbolicRadius.h"
#include "mathkit/stderr_failed.h"

#include <algorithm>

namespace {

double real(const curve_values& values, std::size_t i) {
    return std::get<double>(values.at(i));
}

template<class Curve>
kit::string family() {
    return Curve().familyText();
}

kit::string formula_help() {
    return "User Defined Formula\n"
           "\n"
           "dummy variable t\n"
           "example for input : \"5+sin(t)\"\n"
           "\n"
           "The function must be positive,two times\n"
           "continuous differentiable and 2*pi periodic!";
}

// A curve that takes any value of its one parameter.
template<class Curve>
std::unique_ptr<TRadiusFunction> of_any(const curve_values& values) {
    return std::make_unique<Curve>(real(values, 0));
}

// A curve with these parameters, or null if its setter refuses them.
template<class Curve, class... Values>
std::unique_ptr<TRadiusFunction> checked(Values... values) {
    auto curve = std::make_unique<Curve>();
    if (!curve->set(values...)) return nullptr;
    return curve;
}

std::unique_ptr<TRadiusFunction> formula(const curve_values& values) {
    return std::make_unique<symbolic::TSymbolicRadius>(std::get<FXString>(values.at(0)).text());
}

std::unique_ptr<TRadiusFunction> triangle(const curve_values& degrees) {
    auto curve = std::make_unique<TTriangleFunction>();
    if (!curve->setDegrees(real(degrees, 0), real(degrees, 1))) return nullptr;
    return curve;
}

} // namespace

// clang-format off
const std::vector<curve_entry>& curve_table() {
    using values = const curve_values&;
    static const std::vector<curve_entry> table = {
        {.name = "Ellipse",
         .id = FMain::ID_ELLIPSE,
         .heading = family<TEllipseFunction>,
         .parameters = {{"e", 0.5, 254}},
         .build = of_any<TEllipseFunction>},

        {.name = "Oval Type A",
         .id = FMain::ID_OVAL_A,
         .heading = family<TOvalAFunction>,
         .parameters = {{"c", 5.0, 147}},
         .build = [](values v) { return checked<TOvalAFunction>(real(v, 0)); },
         .refusal = "parameter wrong"},

        {.name = "Oval Type B",
         .id = FMain::ID_OVAL_B,
         .heading = family<TOvalBFunction>,
         .parameters = {{"e", 0.3, 201}},
         .build = [](values v) { return checked<TOvalBFunction>(real(v, 0)); },
         .refusal = "parameter wrong"},

        {.name = "Oval Type C",
         .id = FMain::ID_OVAL_C,
         .heading = family<TGenOvalFunction>,
         .parameters = {{"c", 2.0, 348}, {"n", 3, 358}},
         .build = [](values v) {
             return checked<TGenOvalFunction>(real(v, 0), std::get<int>(v.at(1)));
         },
         .refusal = "parameter wrong"},

        {.name = "Stadium",
         .id = FMain::ID_STADIUM,
         .heading = family<TStadiumFunction>,
         .parameters = {{"z", 1.0, 301}},
         .build = of_any<TStadiumFunction>},

        {.name = "User Defined Formula",
         .id = FMain::ID_USER_FORMULA,
         .heading = formula_help,
         .parameters = {{"R(t)=", "5+sin(t)", 411}},
         .build = formula,
         .cancel_first = true,
         .width = 300,
         .height = 250},

        {.name = "Triangle",
         .id = FMain::ID_TRIANGLE,
         .heading = family<TTriangleFunction>,
         .parameters = {{"alpha(\u00B0)", 60.0, 469}, {"beta(\u00B0)", 70.0, 477}},
         .build = triangle,
         .refusal = "Parameters Wrong",
         .layout = field_layout::matrix},
    };
    return table;
}
// clang-format on

const curve_entry& curve_of(FXuint id) {
    const auto& table = curve_table();
    const auto row = std::ranges::find(table, id, &curve_entry::id);
    stderr_assert(row != table.end(), "row!=table.end()", "billiard/fox/curve_table",
                  "const curve_entry& curve_of(FXuint)");
    return *row;
}

curve_values first_values(const curve_entry& entry) {
    curve_values values;
    for (const curve_parameter& parameter : entry.parameters)
        std::visit([&](auto first) { values.emplace_back(first); }, parameter.first);
    return values;
}
