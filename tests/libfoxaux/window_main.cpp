// SPDX-License-Identifier: MIT
// Runs every window test of a process on one application.
#include "tests/libfoxaux/application.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    window_test::app();
    return RUN_ALL_TESTS();
}
