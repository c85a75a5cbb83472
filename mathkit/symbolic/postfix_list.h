// SPDX-License-Identifier: MIT
// Compiled expressions: lists of steps for a small machine of one register and a stack of slots.
#pragma once

#include "mathkit/symbolic/diffarithm.h"

#include <cstdint>
#include <vector>

namespace symbolic {

/// What a step does. `acc` is the machine's register. s[] is the stack: slots that a step reads and
/// writes in any order, by their numbers. a, b, c and k are the fields of the step.
enum class opcode : std::uint16_t {
    end,          ///< acc + k is the result: a number that is added last costs no step
    number,       ///< acc = k
    load,         ///< acc = s[a]
    load_mul_k,   ///< acc = s[a] * k
    store,        ///< s[a] = acc
    store_load,   ///< s[b] = acc, acc = s[a]
    negate,       ///< acc = -acc
    add_k,        ///< acc = acc + k
    mul_k,        ///< acc = acc * k
    from_k,       ///< acc = k - acc
    div_k,        ///< acc = acc / k
    over_k,       ///< acc = k / acc
    add,          ///< acc = acc + s[a]
    sub,          ///< acc = acc - s[a]
    from,         ///< acc = s[a] - acc
    mul,          ///< acc = acc * s[a]
    div,          ///< acc = acc / s[a]
    over,         ///< acc = s[a] / acc
    mul_k_add,    ///< acc = acc * k + s[a]
    mul_k_add_k,  ///< acc = acc * k + k of the next step, which is skipped
    mul_add,      ///< acc = acc * s[b] + s[a]
    mul_sub,      ///< acc = acc * s[b] - s[a]
    mul_from,     ///< acc = s[a] - acc * s[b]
    sqr,          ///< acc = acc * acc
    sqrt,         ///< acc = sqrt(acc)
    exp,          ///< acc = exp(acc)
    log,          ///< acc = log(acc)
    sin,          ///< acc = sin(acc)
    cos,          ///< acc = cos(acc)
    sin_cos,      ///< s[b] = cos(acc), acc = sin(acc)
    cos_sin,      ///< s[b] = sin(acc), acc = cos(acc)
    sin_of,       ///< acc = sin(s[a] * k)
    cos_of,       ///< acc = cos(s[a] * k)
    sin_cos_of,   ///< s[b] = cos(s[a] * k), acc = sin(s[a] * k)
    cos_sin_of,   ///< s[b] = sin(s[a] * k), acc = cos(s[a] * k)
    angle,        ///< s[c] = sin(s[a]), s[c + 1] = cos(s[a])
    angle_sum,    ///< the same of the sum of two angles, whose pairs stand at s[a] and s[b]
    angle_double, ///< the same of twice the angle whose pair stands at s[a]
    pow,          ///< acc = acc ^ s[a]
    pow_of,       ///< acc = s[a] ^ acc
    pow_k,        ///< acc = acc ^ k
    k_pow,        ///< acc = k ^ acc
    call          ///< acc = apply(function_id(c), acc)
};

/// One step of a list.
struct step {
    opcode operation = opcode::end;
    std::uint16_t a = 0, b = 0, c = 0;
    double k = 0;
};

/// An expression in postfix order, with constants and stored operands folded into the steps.
///
/// Evaluation allocates nothing and reads the cells that the expression was built with at each
/// call. NaN flows through. Calls on different stacks do not disturb each other.
class postfix_list {
public:
    /// Gives 0 until an expression is compiled into it.
    postfix_list();

    /// The entries that a stack for this list must have.
    int stacksize() const { return stack_entries; }

    /// The number of steps, the closing one included.
    int length() const { return static_cast<int>(steps.size()); }

    /// The value. `stack` has stacksize() entries; what they hold does not matter.
    double eval_double(double* stack) const;

    /// The value and its derivative by the cell that was made as the variable, in one pass; for
    /// callers that have no expression to differentiate. The curves have.
    diffarithm eval_diffarithm(diffarithm* stack) const;

    /// The value of a list that takes the sine and the cosine of its variable from the caller
    /// (postfix_compiler::take_sine_and_cosine); the cells must agree with them.
    double eval_angle(double* stack, double sine, double cosine) const {
        stack[sine_slot] = sine;
        stack[sine_slot + 1] = cosine;
        return eval_double(stack);
    }

    /// Both values of such a list of two results.
    void eval_pair(double* stack, double sine, double cosine, double& first, double& second) const {
        second = eval_angle(stack, sine, cosine);
        first = stack[first_slot];
    }

private:
    friend class postfix_compiler;
    friend class postfix_scheduler;

    struct cell_slot {
        const double* address; ///< not owned
        bool variable;
    };

    std::vector<step> steps;
    std::vector<cell_slot> cells; ///< cells[i] is copied to s[i] before the first step
    int stack_entries = 0;
    int first_slot = 0; ///< of the first of two results
    int sine_slot = 0;  ///< of the sine that the caller gives; the cosine follows
};

} // namespace symbolic
