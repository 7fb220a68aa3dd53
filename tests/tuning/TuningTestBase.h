// SPDX-License-Identifier: GPL-3.0-or-later
// A folder with files, a desktop whose answers a test writes down, and settings to follow.
#pragma once

#include "platform/desktop/TextFile.h"
#include "platform/foundation/LenientNumber.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/NotificationNames.h"
#include "tests/support/RecordingControls.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingLog.h"
#include "tuning/MVStretchDocument.h"
#include "tuning/MVTemperamentDocument.h"

#include <QTemporaryDir>
#include <any>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veltrano {

using Texts = std::vector<std::string>;

struct ScriptedSettings final : TuningSettings {
    double referencePitch() const override { return pitch; }
    int tonic() const override { return key; }
    double pitch = 440;
    int key = 0;
};

struct CountingView final : Refreshable {
    void refresh() override { ++refreshes; }
    int refreshes = 0;
};

/// The controls of a document's window.
struct RecordingEditor {
    RecordingText name;
    RecordingText description;
    CountingView table;
    CountingView graph;
    TuningDocument::Outlets outlets() { return {&name, &description, &table, &graph}; }
    /// As if the user had typed @p text into the name field.
    void typeName(TuningDocument& document, std::string_view text) {
        name.setText(text);
        document.controlTextDidChange(name);
    }
    void typeDescription(TuningDocument& document, std::string_view text) {
        description.setText(text);
        document.controlTextDidChange(description);
    }
};

inline constexpr std::string_view kEditedOutOfRange =
    "Temperament value is out of range. It has to be between -50 and +50 cents.";

class TuningTestBase : public testing::Test {
protected:
    TuningTestBase() {
        for (const auto name : {notification::kTemperamentEdited, notification::kStretchEdited,
                                notification::kTemperamentSaved, notification::kStretchSaved}) {
            mObservations.push_back(center.observe(name, [this, name](const std::any& object) {
                const auto* temperament = std::any_cast<const EditedTemperament*>(&object);
                const auto* stretch = std::any_cast<const EditedStretch*>(&object);
                EXPECT_TRUE(temperament || stretch) << name << " carries its document";
                if (temperament) postedCents = (*temperament)->temperamentCents();
                if (stretch) postedStretch = (*stretch)->stretch();
                posted.emplace_back(name);
            }));
        }
    }

    std::string path(std::string_view name) const {
        return mFolder.path().toStdString() + '/' + std::string(name);
    }
    std::string write(std::string_view name, std::string_view bytes) const {
        const std::string file = path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    std::string contents(std::string_view name) const {
        return readTextFile(path(name)).bytes.value_or("(no file)");
    }
    MVTemperamentDocument::Ports temperamentPorts(MVTemperamentLibrary* library = nullptr) {
        return {services, center, settings, library};
    }
    MVStretchDocument::Ports stretchPorts(MVStretchLibrary* library = nullptr) {
        return {services, center, library};
    }
    void setTonic(int key) {
        settings.key = key;
        center.post(notification::kRootKeyChanged);
    }
    void setReferencePitch(double hz) {
        settings.pitch = hz;
        center.post(notification::kReferencePitch);
    }
    Texts takePosted() { return std::exchange(posted, {}); }

    RecordingLog log;
    MemoryPasteboard pasteboard;
    RecordingPanels panels;
    NotificationCenter center;
    ScriptedSettings settings;
    DocumentServices services{log, pasteboard, panels};
    RecordingEditor editor;
    Texts posted; ///< names of notifications
    CentTable postedCents{};
    StretchTable postedStretch{};

private:
    QTemporaryDir mFolder;
    std::vector<NotificationCenter::Observation> mObservations;
};

inline const std::string kEdited(notification::kTemperamentEdited);
inline const std::string kSaved(notification::kTemperamentSaved);
inline const std::string kStretchEdited(notification::kStretchEdited);
inline const std::string kStretchSaved(notification::kStretchSaved);

/// A temperament file whose key of C is 0 but for one value.
inline std::string temperamentFile(std::string_view name, std::string_view note = "C",
                                   double cents = 0) {
    return "\"Name\"=\"" + std::string(name) + "\";\n\"Description\"=\"about " + std::string(name) +
           "\";\n\"" + std::string(note) + "\"=\"" + fixedDecimals(cents, 9) + "\";\n";
}

/// A stretch file whose key of A4 has that offset.
inline std::string stretchFile(std::string_view name, double cents = 0) {
    return temperamentFile(name, "A4", cents);
}

/// A Scala file with that description whose first pitches are given.
inline std::string scalaFile(std::string_view description, std::string_view pitches = "") {
    return "! a comment\n" + std::string(description) + "\n 12\n" + std::string(pitches);
}

} // namespace veltrano
