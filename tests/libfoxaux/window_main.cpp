// SPDX-License-Identifier: MIT
// The main function of the test programs that open windows.
#include "tests/libfoxaux/window_fixture.h"

int main(int argc, char** argv) {
    return window_test::run_all(argc, argv);
}
