// SPDX-License-Identifier: MIT
// From values to steps: what is computed when, and where it is kept.
#pragma once

#include "mathkit/symbolic/postfix_compiler.h"

#include <set>
#include <vector>

namespace symbolic {

/// Orders the values of one compiler into the steps of a list.
///
/// Notes: the newest value stays in the machine's register. A value that is used again is also
/// stored in a slot of the stack, which is free again after its last use. Sine and cosine of one
/// argument are computed in one step. Sines and cosines of whole multiples of a cell, as they make
/// up most formulas of closed curves, are built from one angle by the addition theorems where that
/// takes fewer operations.
///
/// Example: the values v0 to v9 of 3+cos(2*t) and its derivative, as postfix_compiler.h lists them,
/// with sine and cosine of t given by the caller. The stack holds t in s[0] and what the caller
/// gives in s[1] and s[2].
///
///     count_uses     v3 twice, v7 never: it gets no step
///     choose_angles  v4 and v6 are cosine and sine of 2 t: one doubling instead of two calls
///     give_partners  nothing is left for a joint step of sine and cosine
///     emit v5, v9    angle_double  s[4], s[5] = sine and cosine of 2 t, from s[1] and s[2]
///                    load          acc = s[5]                   v4
///                    add_k         acc = acc + 3                v5
///                    store_load    s[3] = acc, acc = s[4]       the first result; v6
///                    mul_k         acc = acc * -2               v9
///     put_end        end           acc + -0 is the second result
///
/// Alone, without the caller's help, 3+cos(2*t) is: cos_of (acc = cos(s[0] * 2)), end (acc + 3).
class postfix_scheduler {
public:
    explicit postfix_scheduler(const postfix_compiler& source);

    postfix_list list();

private:
    using kind = postfix_compiler::kind;
    using value = postfix_compiler::value;

    /// The argument of a sine or cosine: `factor` times a cell.
    struct scaled_cell {
        int cell = -1;
        double factor = 0;
    };

    void put_end();
    void count_uses();
    void choose_angles();
    void give_partners();
    scaled_cell argument_of(int v) const;
    bool is_sine_or_cosine(int v) const;
    static void add_multiples(int n, std::set<int>& multiples);

    void emit(int v);
    void emit_new(int v);
    void emit_binary(const value& v);
    void emit_operands(int a, int b, opcode direct, opcode swapped);
    void emit_call(int v);
    void emit_trigonometry(int v);
    void make_angle_of(int v);
    void make_angle(int n);
    void put_with_number(kind operation, double k);
    void put_from_number(kind operation, double k);
    void put_with_slot(opcode operation, int slot);

    bool stored(int v) const { return slots[v] >= 0; }
    bool is_angle(int v) const { return angle_of[v] != 0; }
    void keep(int v);
    void use(int v);
    int new_slot();
    int new_pair();
    step& put(opcode operation, int a = 0, int b = 0, double k = 0);

    const postfix_compiler& source;
    const std::vector<value>& values;
    postfix_list made;
    std::vector<int> uses;     ///< steps still to come that read the value
    std::vector<int> slots;    ///< where the value is stored, -1 for nowhere
    std::vector<int> partner;  ///< for a sine the cosine of the same argument, and reverse; or -1
    std::vector<int> angle_of; ///< n where the value is sine or cosine of n times the angle, or 0
    std::vector<int> free_slots;
    std::vector<int> pair_of; ///< where sine and cosine of n times the angle are stored, or -1
    int angle_cell = -1;      ///< the value that is the angle itself, a cell
};

} // namespace symbolic
