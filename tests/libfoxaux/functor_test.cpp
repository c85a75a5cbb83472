// SPDX-License-Identifier: MIT
// Tests of counted bound member functions: who lives how long, what an empty one does.
#include "libfoxaux/fox-utils/functor.h"

#include <gtest/gtest.h>

namespace {

struct counting_handle : functor1<int, int>::handle {
    explicit counting_handle(int& alive) : alive(alive) { ++alive; }
    ~counting_handle() override { --alive; }
    int operator()(int n) override { return n + 1; }
    int& alive;
};

struct base {
    virtual ~base() = default;
    virtual int twice(int n) { return 2 * n; }
    void remember() { ++called; }
    int called = 0;
};

struct derived : base {
    int twice(int n) override { return 20 * n; }
};

TEST(functor, CallsTheMemberOfItsObjectOrNothing) {
    const functor0<void> nothing;
    nothing();
    EXPECT_FALSE(nothing);
    EXPECT_EQ((functor1<int, int>()(7)), 0);
    derived object;
    const functor0<void> remember(static_cast<base*>(&object), &base::remember);
    const functor0<void> copy(remember);
    remember();
    copy();
    EXPECT_EQ(object.called, 2);
    // A virtual member is dispatched by the object, not by the type it was bound with.
    EXPECT_EQ((functor1<int, int>(static_cast<base*>(&object), &base::twice)(3)), 60);
}

TEST(functor, TheTargetGoesWithItsLastOwner) {
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
        EXPECT_EQ(survivor(1), 2);
        const functor1<int, int>& itself = survivor;
        survivor = itself;
        EXPECT_EQ(survivor(1), 2);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
