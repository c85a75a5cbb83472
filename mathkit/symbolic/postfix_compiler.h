// SPDX-License-Identifier: MIT
// From expressions to postfix lists.
#pragma once

#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/functions.h"
#include "mathkit/symbolic/postfix_list.h"

#include <cstdint>
#include <map>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace symbolic {

/// Compiles one or two expressions into one list.
///
/// The nodes hand over their operations in postfix order; equal operations on equal operands become
/// one value, whichever expression they stand in. `finish` then orders the values into steps.
///
/// Example: 3+cos(2*t) and its derivative arrive as
///
///     3  2 t mul  cos  add          -> first result
///     2 t mul  sin  negate  2 mul   -> second result
///
/// and become, each value once and in the order in which it is first met,
///
///     v0 = 3
///     v1 = 2
///     v2 = t
///     v3 = v2 * v1    numbers stand on the right
///     v4 = cos(v3)
///     v5 = v4 + v0    the first result
///     v6 = sin(v3)    of the same v3
///     v7 = -v6        unused in the end: the factor 2 takes the sign instead
///     v8 = -2
///     v9 = v6 * v8    the second result
///
/// postfix_scheduler.h goes on from there.
class postfix_compiler {
public:
    /// Lets the list take the sine and the cosine of its variable from the caller.
    /// Call it before the first result.
    void take_sine_and_cosine() { sine_given = true; }

    /// Adds an expression to be computed; at most two. Throws TError where a name or a variable is
    /// left in it.
    void result(const ex& e);

    /// The list. Throws TError if it needs more than max_stack entries.
    postfix_list finish();

    // What nodes call. These push a value onto the operand stack:
    void operand(const ex& e); ///< of an operand of the calling node
    void number(double value);
    void cell(const double* address, bool variable);
    // And these replace their operands on top of it by their own value:
    void negate();
    void add();
    void sub();
    void mul();
    void div();
    void pow();
    void call(function_id id);

private:
    friend class postfix_scheduler;

    enum class kind { number, cell, negate, add, sub, mul, div, pow, call };

    /// One value of the expressions. Its operands `a` and `b` are indices of earlier values. For a
    /// cell, `a` is its index in `cells`.
    struct value {
        kind operation;
        int a = -1, b = -1;
        double k = 0;                         ///< of a number
        function_id function = function_id{}; ///< of a call
    };

    using key = std::tuple<kind, int, int, std::uint64_t, function_id>;

    int intern(const value& v);
    int make_number(double k) { return intern({kind::number, -1, -1, k, {}}); }
    int make_negate(int a);
    int make_add(int a, int b);
    int make_sub(int a, int b);
    int make_mul(int a, int b);
    int make_div(int a, int b);
    int make_pow(int a, int b);
    int make_whole_power(int a, unsigned n);
    int make_call(function_id id, int a);

    bool is(int v, kind operation) const { return values[v].operation == operation; }
    bool is_number(int v, double k) const { return is(v, kind::number) && values[v].k == k; }
    int pop();
    void push(int v) { operands.push_back(v); }

    std::vector<value> values;
    std::map<key, int> known;                   ///< the values, by operation and operands
    std::unordered_map<const basic*, int> done; ///< value of a node that is compiled already
    std::vector<ex> kept;                       ///< keeps the nodes of `done` alive
    std::vector<int> operands;
    std::vector<int> results;
    std::vector<postfix_list::cell_slot> cells;
    bool sine_given = false;
};

} // namespace symbolic
