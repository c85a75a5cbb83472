// SPDX-License-Identifier: MIT
// Tests of the store of input histories: which sites share a list, what one remembered value does.
#include "libfoxaux/fox-utils/history_manager.h"

#include <gtest/gtest.h>

namespace {

TEST(history_manager, ListsAreApartUnlessEveryArgumentIsTheSame) {
    history_manager& store = *history_manager::instance();
    int window = 0, other_window = 0;
    history_manager::history* const lists[] = {
        &store.lookup("a", 1, &window),  &store.lookup("a", 1, &other_window),
        &store.lookup("a", 1, nullptr),  &store.lookup("a", 2, &window),
        &store.lookup("b", 1, &window),  &store.lookup_key("a", &window),
        &store.lookup_key("a", nullptr), &store.lookup_line("a", 1),
        &store.lookup_line("a", 2),
    };
    for (const auto& first : lists)
        for (const auto& second : lists)
            EXPECT_EQ(first == second, &first == &second);

    lists[0]->push_front("entry");
    EXPECT_EQ(store.lookup("a", 1, &window).front(), "entry");
    EXPECT_EQ(&store.lookup_line("a", 1), lists[7]);
    EXPECT_TRUE(store.lookup_key("a", &window).empty());
}

TEST(history_object, RemembersOneValue) {
    history_object first("history_object", 1, nullptr);
    EXPECT_TRUE(first.is_new);
    EXPECT_TRUE(first._S->is_empty());
    first.set_int(-42);

    history_object again("history_object", 1, nullptr);
    EXPECT_FALSE(again.is_new);
    EXPECT_EQ(again.get_int(), -42);
    *again._S = "12 fonts";
    EXPECT_EQ(first.get_int(), 12);
    *again._S = "no number";
    EXPECT_EQ(first.get_int(), 0);
}

TEST(history_object, OneWithoutAStringEndsTheProcess) {
    EXPECT_DEATH(history_object().get_int(), "int history_object::get_int\\(\\).*_S!=0");
    EXPECT_DEATH(history_object().set_int(1), "void history_object::set_int\\(int\\).*_S!=0");
}

} // namespace
