// SPDX-License-Identifier: GPL-3.0-or-later
// When the application counts as hidden.
#include "app/WindowsInSight.h"

#include <QWidget>
#include <gtest/gtest.h>
#include <memory>

namespace veltrano {
namespace {

class WindowsInSightTest : public testing::Test {
protected:
    WindowsInSightTest() {
        first.show();
        second->show();
        inSight.add(first);
        inSight.add(*second);
    }

    QWidget first;
    std::unique_ptr<QWidget> second = std::make_unique<QWidget>();
    std::vector<bool> told;
    WindowsInSight inSight{[this](bool isAny) { told.push_back(isAny); }};
};

TEST_F(WindowsInSightTest, OneWindowThatStaysIsEnough) {
    first.setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(told.empty());
    second->hide();
    EXPECT_EQ(told, std::vector<bool>{false});
    first.setWindowState(Qt::WindowNoState);
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST_F(WindowsInSightTest, MinimisedAndHiddenCountTheSame) {
    second->setWindowState(Qt::WindowMinimized);
    first.hide();
    EXPECT_EQ(told, std::vector<bool>{false});
    second->hide();
    EXPECT_EQ(told.size(), 1u) << "told once";
    first.show();
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST_F(WindowsInSightTest, AWindowThatIsGoneDoesNotCount) {
    second.reset();
    first.hide();
    EXPECT_EQ(told.back(), false);
}

} // namespace
} // namespace veltrano
