// SPDX-License-Identifier: MIT
// Tests of the store of input histories: which sites share a list.
#include "libfoxaux/fox-utils/history_manager.h"

#include <gtest/gtest.h>

namespace {

TEST(HistoryManager, ListsAreApartUnlessEveryArgumentIsTheSame) {
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
    EXPECT_EQ(&store.lookup("a", 1, &window), lists[0]);
    EXPECT_EQ(&store.lookup_line("a", 1), lists[7]);
}

} // namespace
