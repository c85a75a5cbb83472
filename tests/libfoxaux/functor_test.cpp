// SPDX-License-Identifier: MIT
// Tests of counted bound member functions: who lives how long.
#include "libfoxaux/fox-utils/functor.h"

#include <gtest/gtest.h>

namespace {

struct counting_handle : functor1<int, int>::handle {
    explicit counting_handle(int& alive) : alive(alive) { ++alive; }
    ~counting_handle() override { --alive; }
    int operator()(int n) override { return n + 1; }
    int& alive;
};

TEST(Functor, TheTargetGoesWithItsLastOwner) {
    int alive = 0;
    {
        functor1<int, int> survivor;
        {
            const functor1<int, int> first(new counting_handle(alive));
            functor1<int, int> second(first);
            survivor = second;
            second = functor1<int, int>(new counting_handle(alive));
            EXPECT_EQ(alive, 2);
        }
        EXPECT_EQ(alive, 1);
        const functor1<int, int>& itself = survivor;
        survivor = itself;
        EXPECT_EQ(survivor(1), 2);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
