// SPDX-License-Identifier: GPL-3.0-or-later
// Coordinates with y up.
#include "platform/desktop/YUp.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(YUp, TurnsThereAndBack) {
    const YUp yUp(100);
    EXPECT_EQ(yUp.point(3, 0), QPointF(3, 100));
    EXPECT_EQ(yUp.point(3, 100), QPointF(3, 0));
    EXPECT_EQ(yUp.rect(10, 5.5, 20, 8), QRectF(10, 86.5, 20, 8));
    EXPECT_EQ(yUp.rect(yUp.rect(QRectF(10, 5.5, 20, 8))), QRectF(10, 5.5, 20, 8));
}

} // namespace
} // namespace veltrano
