// SPDX-License-Identifier: MIT
// The order of the steps of a postfix list, and the entries of its stack.
#include "mathkit/symbolic/postfix_scheduler.h"

#include "mathkit/TError.h"
#include "mathkit/symbolic/limits.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace symbolic {

namespace {

// The greatest multiple of the angle that addition theorems build: each addition adds a rounding.
constexpr int largest_multiple = 16;

// Costs in units of one addition theorem, as measured.
constexpr int cost_of_sine = 3;
constexpr int cost_of_first_angle = 4;

// A multiple is the sum of these two.
int lower_half(int n) {
    return n / 2;
}
int upper_half(int n) {
    return n - n / 2;
}

} // namespace

postfix_scheduler::postfix_scheduler(const postfix_compiler& source)
    : source(source),
      values(source.values),
      uses(values.size(), 0),
      slots(values.size(), -1),
      partner(values.size(), -1),
      angle_of(values.size(), 0),
      pair_of(largest_multiple + 1, -1) {
    made.steps.clear();
    made.cells = source.cells;
    made.stack_entries = static_cast<int>(made.cells.size());
    for (std::size_t v = 0; v < values.size(); ++v) {
        if (values[v].operation == kind::cell) slots[v] = values[v].a;
    }
}

postfix_list postfix_scheduler::list() {
    if (source.sine_given) made.sine_slot = pair_of[1] = new_pair();
    count_uses();
    choose_angles();
    give_partners();
    for (std::size_t i = 0; i + 1 < source.results.size(); ++i) {
        made.first_slot = new_slot();
        emit(source.results[i]);
        put(opcode::store, made.first_slot);
    }
    emit(source.results.back());
    put_end();
    if (made.stack_entries == 0) made.stack_entries = 1;
    return std::move(made);
}

// Many curves are a number plus something: the closing step adds the number.
void postfix_scheduler::put_end() {
    constexpr double nothing = -0.0; // which changes no number, not even -0
    step& last = made.steps.back();
    if (last.operation == opcode::add_k) {
        last.operation = opcode::end;
    } else {
        put(opcode::end, 0, 0, nothing);
    }
}

void postfix_scheduler::count_uses() {
    for (const int v : source.results)
        ++uses[v];
    // Operands stand before the values that use them.
    for (std::size_t i = values.size(); i-- > 0;) {
        const value& v = values[i];
        if (uses[i] == 0 || v.operation == kind::cell) continue;
        if (v.a >= 0) ++uses[v.a];
        if (v.b >= 0) ++uses[v.b];
    }
}

bool postfix_scheduler::is_sine_or_cosine(int v) const {
    return values[v].operation == kind::call &&
           (values[v].function == function_id::sin || values[v].function == function_id::cos);
}

postfix_scheduler::scaled_cell postfix_scheduler::argument_of(int v) const {
    const int a = values[v].a;
    if (values[a].operation == kind::cell) return {a, 1};
    if (values[a].operation != kind::mul) return {};
    const value& product = values[a];
    if (values[product.a].operation != kind::cell || values[product.b].operation != kind::number) {
        return {};
    }
    return {product.a, values[product.b].k};
}

void postfix_scheduler::add_multiples(int n, std::set<int>& multiples) {
    if (n <= 1 || !multiples.insert(n).second) return;
    add_multiples(lower_half(n), multiples);
    add_multiples(upper_half(n), multiples);
}

void postfix_scheduler::choose_angles() {
    std::vector<int> found;
    std::set<int> wanted;
    std::set<int> multiples;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int v = static_cast<int>(i);
        if (uses[i] == 0 || !is_sine_or_cosine(v)) continue;
        const scaled_cell t = argument_of(v);
        const double n = t.factor; // not negative: the compiler moves signs outward
        if (t.cell < 0 || n != std::trunc(n) || n < 1 || n > largest_multiple) continue;
        if (source.sine_given && !source.cells[values[t.cell].a].variable) continue;
        if (angle_cell >= 0 && t.cell != angle_cell) continue; // one angle, the first
        angle_cell = t.cell;
        found.push_back(v);
        wanted.insert(static_cast<int>(n));
        add_multiples(static_cast<int>(n), multiples);
    }
    const int additions =
        static_cast<int>(multiples.size()) + (source.sine_given ? 0 : cost_of_first_angle);
    if (additions > cost_of_sine * static_cast<int>(wanted.size())) return;
    for (const int v : found)
        angle_of[v] = static_cast<int>(argument_of(v).factor);
}

void postfix_scheduler::give_partners() {
    std::vector<int> sine_of(values.size(), -1);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int v = static_cast<int>(i);
        if (uses[i] == 0 || is_angle(v) || !is_sine_or_cosine(v)) continue;
        int& other = sine_of[values[i].a];
        if (other >= 0) {
            partner[v] = other;
            partner[other] = v;
        }
        other = v;
    }
}

step& postfix_scheduler::put(opcode operation, int a, int b, double k) {
    if (operation == opcode::load && !made.steps.empty() &&
        made.steps.back().operation == opcode::store) {
        step& last = made.steps.back();
        last = {opcode::store_load, static_cast<std::uint16_t>(a), last.a, 0, 0};
        return last;
    }
    made.steps.push_back(
        {operation, static_cast<std::uint16_t>(a), static_cast<std::uint16_t>(b), 0, k});
    return made.steps.back();
}

int postfix_scheduler::new_slot() {
    if (!free_slots.empty()) {
        const int slot = free_slots.back();
        free_slots.pop_back();
        return slot;
    }
    if (made.stack_entries >= max_stack) {
        throw TError(kit::string::format("the formula with its derivatives is too large: the limit "
                                         "is %d intermediate results",
                                         max_stack));
    }
    return made.stack_entries++;
}

int postfix_scheduler::new_pair() {
    const int first = made.stack_entries;
    made.stack_entries += 2; // there are few pairs, the limit has room for them
    return first;
}

void postfix_scheduler::keep(int v) {
    slots[v] = new_slot();
    put(opcode::store, slots[v]);
}

void postfix_scheduler::use(int v) {
    if (--uses[v] > 0 || !stored(v)) return;
    if (values[v].operation == kind::cell || is_angle(v)) return; // these keep their slots
    free_slots.push_back(slots[v]);
    slots[v] = -1;
}

void postfix_scheduler::emit(int v) {
    make_angle_of(v);
    if (stored(v)) {
        put(opcode::load, slots[v]);
        use(v);
        return;
    }
    emit_new(v);
    if (--uses[v] > 0 && values[v].operation != kind::number) keep(v);
}

void postfix_scheduler::emit_new(int v) {
    const value& wanted = values[v];
    switch (wanted.operation) {
    case kind::number:
        put(opcode::number, 0, 0, wanted.k);
        break;
    case kind::cell:
        break; // stored from the start
    case kind::negate:
        emit(wanted.a);
        put(opcode::negate);
        break;
    case kind::add:
    case kind::sub:
    case kind::mul:
    case kind::div:
    case kind::pow:
        emit_binary(wanted);
        break;
    case kind::call:
        emit_call(v);
        break;
    }
}

void postfix_scheduler::emit_binary(const value& v) {
    if (values[v.b].operation == kind::number) {
        emit(v.a);
        put_with_number(v.operation, values[v.b].k);
        return;
    }
    if (values[v.a].operation == kind::number) {
        emit(v.b);
        put_from_number(v.operation, values[v.a].k);
        return;
    }
    switch (v.operation) {
    case kind::add:
        emit_operands(v.a, v.b, opcode::add, opcode::add);
        break;
    case kind::sub:
        emit_operands(v.a, v.b, opcode::sub, opcode::from);
        break;
    case kind::mul:
        emit_operands(v.a, v.b, opcode::mul, opcode::mul);
        break;
    case kind::div:
        emit_operands(v.a, v.b, opcode::div, opcode::over);
        break;
    default:
        emit_operands(v.a, v.b, opcode::pow, opcode::pow_of);
        break;
    }
}

// Combines the register with a number on its right: a sum, a product, a quotient or a power. The
// compiler has left no difference with a number there.
void postfix_scheduler::put_with_number(kind operation, double k) {
    step& last = made.steps.back();
    switch (operation) {
    case kind::add:
        if (last.operation == opcode::mul_k) {
            last.operation = opcode::mul_k_add_k;
            put(opcode::end, 0, 0, k); // only its number is read
        } else {
            put(opcode::add_k, 0, 0, k);
        }
        break;
    case kind::mul:
        if (last.operation == opcode::load) {
            last.operation = opcode::load_mul_k;
            last.k = k;
        } else {
            put(opcode::mul_k, 0, 0, k);
        }
        break;
    case kind::div:
        put(opcode::div_k, 0, 0, k);
        break;
    default:
        put(opcode::pow_k, 0, 0, k);
        break;
    }
}

// Combines the register with a number on its left: a difference, a quotient or a power.
void postfix_scheduler::put_from_number(kind operation, double k) {
    switch (operation) {
    case kind::sub:
        put(opcode::from_k, 0, 0, k);
        break;
    case kind::div:
        put(opcode::over_k, 0, 0, k);
        break;
    default:
        put(opcode::k_pow, 0, 0, k);
        break;
    }
}

// `direct` has a in the register and b in the stack, `swapped` b in the register and a in the
// stack.
void postfix_scheduler::emit_operands(int a, int b, opcode direct, opcode swapped) {
    make_angle_of(a);
    make_angle_of(b);
    if (!stored(b) && stored(a)) {
        emit(b);
        put_with_slot(swapped, slots[a]);
        use(a);
        return;
    }
    emit(a);
    if (stored(b)) { // already, or by now, because a contains it
        put_with_slot(direct, slots[b]);
        use(b);
        return;
    }
    const bool kept = stored(a);
    const int slot = kept ? slots[a] : new_slot();
    if (kept) {
        ++uses[a]; // emit has counted this use already; until b is done the slot must stay
    } else {
        put(opcode::store, slot);
    }
    emit(b);
    put_with_slot(swapped, slot);
    if (kept) {
        use(a);
    } else {
        free_slots.push_back(slot);
    }
}

// If a product was computed last, one step does it and the sum or difference that follows.
void postfix_scheduler::put_with_slot(opcode operation, int slot) {
    step& last = made.steps.back();
    const bool by_number = last.operation == opcode::mul_k;
    const bool by_slot = last.operation == opcode::mul;
    if (by_number && (operation == opcode::add || operation == opcode::from)) {
        const double k = operation == opcode::add ? last.k : -last.k;
        last = {opcode::mul_k_add, static_cast<std::uint16_t>(slot), 0, 0, k};
    } else if (by_slot && operation == opcode::add) {
        last = {opcode::mul_add, static_cast<std::uint16_t>(slot), last.a, 0, 0};
    } else if (by_slot && operation == opcode::sub) {
        last = {opcode::mul_sub, static_cast<std::uint16_t>(slot), last.a, 0, 0};
    } else if (by_slot && operation == opcode::from) {
        last = {opcode::mul_from, static_cast<std::uint16_t>(slot), last.a, 0, 0};
    } else {
        put(operation, slot);
    }
}

void postfix_scheduler::emit_call(int v) {
    if (is_sine_or_cosine(v)) {
        emit_trigonometry(v);
        return;
    }
    emit(values[v].a);
    switch (values[v].function) {
    case function_id::sqr:
        put(opcode::sqr);
        break;
    case function_id::sqrt:
        put(opcode::sqrt);
        break;
    case function_id::exp:
        put(opcode::exp);
        break;
    case function_id::log:
        put(opcode::log);
        break;
    default:
        put(opcode::call).c = static_cast<std::uint16_t>(values[v].function);
        break;
    }
}

void postfix_scheduler::emit_trigonometry(int v) {
    const int argument = values[v].a;
    const int other = partner[v];
    const bool both = other >= 0 && uses[other] > 0 && !stored(other);
    if (both) --uses[argument]; // the other one will not ask for it again
    // A multiple of a cell is folded into the step, unless it is stored already.
    const scaled_cell scaled = stored(argument) && values[argument].operation != kind::cell
                                   ? scaled_cell{}
                                   : argument_of(v);
    const bool of_cell = scaled.cell >= 0;
    if (of_cell) {
        use(argument);
    } else {
        emit(argument);
    }
    if (both) slots[other] = new_slot();
    const bool sine = values[v].function == function_id::sin;
    const opcode single =
        of_cell ? (sine ? opcode::sin_of : opcode::cos_of) : (sine ? opcode::sin : opcode::cos);
    const opcode twofold = of_cell ? (sine ? opcode::sin_cos_of : opcode::cos_sin_of)
                                   : (sine ? opcode::sin_cos : opcode::cos_sin);
    put(both ? twofold : single, of_cell ? slots[scaled.cell] : 0, both ? slots[other] : 0,
        scaled.factor);
}

// Brings a sine or cosine that is built by addition theorems into the stack.
void postfix_scheduler::make_angle_of(int v) {
    if (!is_angle(v)) return;
    make_angle(angle_of[v]);
    slots[v] = pair_of[angle_of[v]] + (values[v].function == function_id::cos ? 1 : 0);
}

void postfix_scheduler::make_angle(int n) {
    if (pair_of[n] >= 0) return;
    if (n == 1) {
        pair_of[1] = new_pair();
        put(opcode::angle, slots[angle_cell]).c = static_cast<std::uint16_t>(pair_of[1]);
        return;
    }
    make_angle(lower_half(n));
    make_angle(upper_half(n));
    pair_of[n] = new_pair();
    const opcode operation = n % 2 ? opcode::angle_sum : opcode::angle_double;
    put(operation, pair_of[lower_half(n)], pair_of[upper_half(n)]).c =
        static_cast<std::uint16_t>(pair_of[n]);
}

} // namespace symbolic
