// SPDX-License-Identifier: GPL-3.0-or-later
// A settings store on a file of its own, with every notification listed.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/NotificationNames.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "tests/settings/ScriptedLibraries.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veltrano {

using Names = std::vector<std::string>;

class PreferencesTestBase : public testing::Test {
protected:
    PreferencesTestBase() {
        for (const auto name :
             {notification::kReferencePitch, notification::kTemperamentChanged,
              notification::kRootKeyChanged, notification::kStretchChanged,
              notification::kInTuneThresholdChanged, notification::kManualModeChanged}) {
            mObservations.push_back(center.observe(name, [this, name](const std::any& object) {
                EXPECT_FALSE(object.has_value()) << name << " carries an object";
                posted.emplace_back(name);
                if (whenPosted) whenPosted();
            }));
        }
        temperaments.entries = {{"Young.temperament", filled<CentTable>(1.5)},
                                {"Vallotti.temperament", filled<CentTable>(-2.5)}};
        stretches.entries = {{"Upright.stretch", filled<StretchTable>(0.25)},
                             {"Grand.stretch", filled<StretchTable>(-0.75)}};
    }

    template <class Table>
    static Table filled(double first) {
        Table table;
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = first + double(i);
        return table;
    }

    QString path() const { return mFolder.filePath(QStringLiteral("%1.conf").arg(fileNumber)); }

    /// The settings as the next start of the program finds them.
    Preferences& start(bool withLibraries = true) {
        preferences.reset();
        defaults = std::make_unique<UserDefaults>(path());
        PreferencesPorts ports{.defaults = *defaults, .notifications = center};
        if (withLibraries) {
            ports.temperaments = &temperaments;
            ports.stretches = &stretches;
        }
        ports.soundGen = soundGenAtStart;
        preferences = std::make_unique<Preferences>(ports);
        posted.clear();
        return *preferences;
    }

    Names takePosted() { return std::exchange(posted, {}); }

    NotificationCenter center;
    ScriptedTemperaments temperaments;
    ScriptedStretches stretches;
    RecordingToneGenerator generator;
    ToneGenerator* soundGenAtStart = nullptr;
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<Preferences> preferences;
    Names posted;
    int fileNumber = 0; ///< QSettings may not notice that a file of the same size was rewritten
    std::function<void()> whenPosted;

private:
    QTemporaryDir mFolder;
    std::vector<NotificationCenter::Observation> mObservations;
};

} // namespace veltrano
