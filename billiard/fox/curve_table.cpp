// SPDX-License-Identifier: MIT
// The one table of the curves that the "Function" menu offers: menu entry, dialog, texts, class.
#include "billiard/fox/curve_table.h"

#include "billiard/fox/FMain.h"
#include "billiard/radius-core/TSymbolicRadius.h"

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

// A curve with these parameters, or null if its setter refuses them.
template<class Curve, class... Values>
std::unique_ptr<TRadiusFunction> checked(Values... values) {
    auto curve = std::make_unique<Curve>();
    if (!curve->set(values...)) return nullptr;
    return curve;
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
        {"Ellipse", FMain::ID_ELLIPSE, family<TEllipseFunction>,
         {{"e", 0.5, 254}},
         [](values v) { return checked<TEllipseFunction>(real(v, 0)); },
         "parameter wrong"},

        {"Oval Type A", FMain::ID_OVAL_A, family<TOvalAFunction>,
         {{"c", 5.0, 147}},
         [](values v) { return checked<TOvalAFunction>(real(v, 0)); },
         "parameter wrong"},

        {"Oval Type B", FMain::ID_OVAL_B, family<TOvalBFunction>,
         {{"e", 0.3, 201}},
         [](values v) { return checked<TOvalBFunction>(real(v, 0)); },
         "parameter wrong"},

        {"Oval Type C", FMain::ID_OVAL_C, family<TGenOvalFunction>,
         {{"c", 2.0, 348}, {"n", 3, 358}},
         [](values v) { return checked<TGenOvalFunction>(real(v, 0), std::get<int>(v.at(1))); },
         "parameter wrong"},

        {"Stadium", FMain::ID_STADIUM, family<TStadiumFunction>,
         {{"z", 1.0, 301}},
         [](values v) { return checked<TStadiumFunction>(real(v, 0)); },
         "parameter wrong"},

        {"User Defined Formula", FMain::ID_USER_FORMULA, formula_help,
         {{"R(t)=", "5+sin(t)", 411}},
         [](values v) -> std::unique_ptr<TRadiusFunction> {
             return std::make_unique<symbolic::TSymbolicRadius>(std::get<FXString>(v.at(0)).text());
         },
         nullptr, field_layout::rows, true, 300, 250},

        {"Triangle", FMain::ID_TRIANGLE, family<TTriangleFunction>,
         {{"alpha(\u00B0)", 60.0, 469}, {"beta(\u00B0)", 70.0, 477}},
         triangle,
         "Parameters Wrong", field_layout::matrix},
    };
    return table;
}
// clang-format on
