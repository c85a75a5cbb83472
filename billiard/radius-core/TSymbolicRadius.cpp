// SPDX-License-Identifier: MIT
// From the text of a formula to a curve.
#include "billiard/radius-core/TSymbolicRadius.h"

#include "mathkit/symbolic/lst.h"
#include "mathkit/symbolic/nodes.h"
#include "mathkit/symbolic/postfix_compiler.h"
#include "mathkit/symbolic/scanexpr.h"
#include "mathkit/symbolic/simplify.h"
#include "mathkit/turn.h"

#include <algorithm>

namespace symbolic {

using kit::wrapped;

namespace {

subs_manager language() {
    subs_manager names;
    names.set_math_constants();
    names.set_experimental_functions();
    return names;
}

} // namespace

TSymbolicRadius::TSymbolicRadius(const char* formula) : TSymbolicRadius(formula, language()) {}

TSymbolicRadius::TSymbolicRadius(const char* formula, const subs_manager& names) : text(formula) {
    const var variable("t");
    ex e0 = scanexpr(formula).eval(names.first, names.second, -1);
    ex e1 = simplify_0_1(e0.diff(variable));
    ex e2 = simplify_0_1(e1.diff(variable));
    for (ex* e : {&e0, &e1, &e2})
        *e = simplify_constants(*e);
    ex e3 = sub(add(mul(e0, e0), mul(mul(ex(2), e1), e1)), mul(e0, e2));

    const ex p(&t, true);
    for (ex* e : {&e0, &e1, &e2, &e3})
        *e = e->subs(lst(variable), lst(p), 0);
    e0.compile(listR);
    e1.compile(listdR);
    e2.compile(listddR);
    e3.compile(listN);

    postfix_compiler both;
    both.take_sine_and_cosine();
    both.result(e0);
    both.result(e1);
    listRdR = both.finish();

    postfix_compiler second;
    second.take_sine_and_cosine();
    second.result(e2);
    list_bend = second.finish();

    int entries = 0;
    for (const postfix_list* list : {&listR, &listdR, &listddR, &listN, &listRdR, &list_bend})
        entries = std::max(entries, list->stacksize());
    stack.resize(static_cast<std::size_t>(entries));
    diffstack.resize(static_cast<std::size_t>(entries));
}

double TSymbolicRadius::R(double phi) const {
    t = wrapped(phi);
    return listR.eval_double(stack.data());
}

double TSymbolicRadius::dR(double phi) const {
    t = wrapped(phi);
    return listdR.eval_double(stack.data());
}

double TSymbolicRadius::ddR(double phi) const {
    t = wrapped(phi);
    return listddR.eval_double(stack.data());
}

double TSymbolicRadius::curvatureNumerator(double phi) const {
    t = wrapped(phi);
    return listN.eval_double(stack.data());
}

kit::string TSymbolicRadius::instanceText() const {
    return kit::string::format("R(t)=%s", text.c_str());
}

void TSymbolicRadius::value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                                      double& dr) const {
    t = wrapped(phi);
    listRdR.eval_pair(stack.data(), sin_phi, cos_phi, r, dr);
}

void TSymbolicRadius::derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                                  double& ddr) const {
    t = wrapped(phi);
    listRdR.eval_pair(stack.data(), sin_phi, cos_phi, r, dr);
    ddr = list_bend.eval_angle(stack.data(), sin_phi, cos_phi);
}

double TSymbolicRadius::curvature_at(double phi, double sin_phi, double cos_phi, double r,
                                     double dr) const {
    t = wrapped(phi);
    return curvature_of(r, dr, list_bend.eval_angle(stack.data(), sin_phi, cos_phi));
}

void TSymbolicRadius::getRdR(double phi, double& r, double& dr) const {
    t = wrapped(phi);
    const diffarithm result = listR.eval_diffarithm(diffstack.data());
    r = result.value;
    dr = result.derivative;
}

} // namespace symbolic
