// SPDX-License-Identifier: MIT
// Ties an entry field of a dialog to its variable, and notices a text that is no number.
#include "libfoxaux/fox-utils/entry_target.h"

#include <cstdlib>
#include <cstring>
#include <utility>

// clang-format off
FXDEFMAP(entry_target) entry_target_map[] = {
    FXMAPFUNC(SEL_CHANGED, FXDataTarget::ID_VALUE, entry_target::onCmdValue),
    FXMAPFUNC(SEL_COMMAND, FXDataTarget::ID_VALUE, entry_target::onCmdValue),
    FXMAPFUNC(SEL_UPDATE,  FXDataTarget::ID_VALUE, entry_target::onUpdValue),
};
// clang-format on
FXIMPLEMENT(entry_target, FXDataTarget, entry_target_map, ARRAYNUMBER(entry_target_map))

namespace {

// Whether a text holds nothing but the number that ends at `end`. Pasted text may bring a line
// break along, which the field does not show.
bool is_all(const char* text, const char* end) {
    return end != text && end[std::strspn(end, " \t\n\v\f\r")] == '\0';
}

// What the user should have typed instead of `text`; null if `text` is right.
const char* meant_by_real(const char* text) {
    char* end = nullptr;
    std::strtod(text, &end); // as the toolkit reads it
    return is_all(text, end) ? nullptr : "a number is meant, with a decimal point, as in 0.5";
}

const char* meant_by_whole(const char* text) {
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    if (!is_all(text, end)) return "a whole number is meant, without a decimal point, as in 3";
    return std::in_range<FXint>(value) ? nullptr : "a number closer to 0 is meant";
}

} // namespace

kit::string entry_target::complaint() const {
    const FXString text = field->getText();
    const char* meant = nullptr;
    if (getType() == DT_DOUBLE) meant = meant_by_real(text.text());
    if (getType() == DT_INT) meant = meant_by_whole(text.text());
    if (!meant) return kit::string::empty();
    const kit::string found = text.empty() ? kit::string("The field is empty.")
                                           : kit::string::format("Not \"%s\".", text.text());
    return kit::string::format("%s: %s.\n%s", label, meant, found.c_str());
}

long entry_target::onCmdValue(FXObject* sender, FXSelector sel, void* ptr) {
    stays = !complaint().is_empty();
    return FXDataTarget::onCmdValue(sender, sel, ptr);
}

long entry_target::onUpdValue(FXObject* sender, FXSelector sel, void* ptr) {
    return stays ? 1 : FXDataTarget::onUpdValue(sender, sel, ptr);
}
