// SPDX-License-Identifier: GPL-3.0-or-later
// The main function of test programs with widgets.
#include "platform/desktop/Appearance.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    // Pictures are compared: whatever desktop runs the tests, they start in the same colours.
    veltrano::Appearance::choose(veltrano::AppearanceChoice::light);
    return RUN_ALL_TESTS();
}
