// SPDX-License-Identifier: GPL-3.0-or-later
// Tables of temperaments and stretches whose values are no numbers.
#include "platform/foundation/NotificationNames.h"
#include "tests/engine/ControllerRig.h"

#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct BadTable {
    const char* what;
    double cents;
};
constexpr BadTable kBadTables[] = {{"not a number", kNaN},
                                   {"infinite", kInfinity},
                                   {"infinite downwards", -kInfinity},
                                   {"astronomic", 1e300}};

/// Selects temperament and stretch tables of that value alone.
void choose(ControllerRig& rig, double cents) {
    rig.temperaments.entries[0].cents.fill(cents);
    rig.stretches.entries[0].cents.fill(cents);
    rig.preferences.setTuningForFileName("first");
    rig.preferences.setStretchForFileName("first");
}

TEST(ControllerBadTables, ListeningGoesOn) {
    for (const BadTable& each : kBadTables) {
        SCOPED_TRACE(each.what);
        ControllerRig rig;
        Controller& controller = rig.start();
        choose(rig, each.cents);
        for (int frame = 0; frame < 5; ++frame)
            controller.updateUI(frameOf(toneSamples(100.0)));
        rig.preferences.setTuning(0);
        rig.preferences.setStretch(0);
        controller.updateUI(frameOf(toneSamples(100.0)));
        EXPECT_EQ(rig.text(TunerText::note), "A") << "441 Hz";
        EXPECT_EQ(rig.text(TunerText::octave), "4");
    }
}

TEST(ControllerBadTables, ManualModeComesToAnEnd) {
    for (const BadTable& each : kBadTables) {
        SCOPED_TRACE(each.what);
        ControllerRig rig;
        rig.start();
        rig.preferences.setManualPitch(123);
        rig.preferences.setSoundBack(true);
        choose(rig, each.cents);
        int announced = 0;
        const auto heard = rig.notifications.observe(notification::kManualModeChanged,
                                                     [&](const std::any&) { ++announced; });
        rig.preferences.setManualMode(true);
        rig.preferences.setManualNote(60);
        EXPECT_LE(announced, 4);
        EXPECT_TRUE(std::isfinite(rig.preferences.manualPitch()));
        rig.preferences.setTuning(0);
        rig.preferences.setStretch(0);
        rig.preferences.setManualNote(57);
        EXPECT_EQ(rig.text(TunerText::idealFrequency), "440.000");
    }
}

} // namespace
} // namespace veltrano
