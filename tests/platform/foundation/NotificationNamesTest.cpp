// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the notifications, letter by letter.
#include "platform/foundation/NotificationNames.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(NotificationNames, AreAsGiven) {
    EXPECT_EQ(notification::kReferencePitch, "morvane.ReferencePitchNotification");
    EXPECT_EQ(notification::kTemperamentChanged, "morvane.TemperamentChangedNotification");
    EXPECT_EQ(notification::kRootKeyChanged, "morvane.RootKeyChangedNotification");
    EXPECT_EQ(notification::kStretchChanged, "morvane.StretchChangedNotification");
    EXPECT_EQ(notification::kInTuneThresholdChanged, "morvane.InTuneThresholdChangedNotification");
    EXPECT_EQ(notification::kManualModeChanged, "morvane.ManualModeChangedNotification");
    EXPECT_EQ(notification::kTemperamentEdited, "morvane.TemperamentEditedNotification");
    EXPECT_EQ(notification::kTemperamentSaved, "morvane.TemperamentSavedNotification");
    EXPECT_EQ(notification::kStretchEdited, "morvane.StretchEditedNotification");
    EXPECT_EQ(notification::kStretchSaved, "morvane.StretchSavedNotification");
    EXPECT_EQ(notification::kPartialsChanged, "morvane.PartialsChangedNotification");
}

} // namespace
} // namespace veltrano
