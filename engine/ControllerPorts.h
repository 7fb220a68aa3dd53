// SPDX-License-Identifier: GPL-3.0-or-later
// What the controller needs of the rest of the program.
#pragma once

#include "engine/FrameRoad.h"
#include "engine/ReadingRecord.h"

#include <optional>
#include <string>

namespace veltrano {

class AUUnitRegistry;
class Clock;
class Log;
class NotificationCenter;
class OutputUnitSource;
class Preferences;
class SpeechPort;
class ToneGenerator;
class TunerDisplay;

/// The windows beside the tuner window.
enum class AnalysisWindowKind { partials, hilbert, piano };
constexpr int kAnalysisWindows = 3;

/// The windows as the controller sees them. Thread: main.
class ApplicationWindows {
public:
    virtual ~ApplicationWindows() = default;
    virtual bool isVisible(AnalysisWindowKind window) const = 0;
    virtual void orderFront(AnalysisWindowKind window) = 0; ///< visible, without the keyboard focus
    virtual void makeKeyAndOrderFront(AnalysisWindowKind window) = 0;
    virtual void orderOut(AnalysisWindowKind window) = 0;
    virtual void centerWindows() = 0;   ///< on the first launch
    virtual void showTunerWindow() = 0; ///< key and front
    virtual void showHelp() = 0;
};

/// Hears of every update cycle: the recording's own clock, the command line's records, pictures.
/// Thread: main.
class FrameObserver {
public:
    virtual ~FrameObserver() = default;
    /// @param seconds of the recording at the frame's last sample: samples so far / rate
    virtual void willUpdate(double seconds) = 0;
    virtual void didUpdate(const ReadingRecord& record) = 0;
};

/// None of it is owned; all of it outlives the controller. A null pointer stands for a facility
/// that is not there: nothing is sent to it.
struct ControllerPorts {
    AUUnitRegistry& registry;
    Preferences& preferences;
    NotificationCenter& notifications;
    const Clock& clock;
    Log& log;
    TunerDisplay& display;
    ApplicationWindows* windows = nullptr;
    SpeechPort* speech = nullptr;
    OutputUnitSource* outputUnits = nullptr;
    /// In place of the controller's own generator, which plays on an output unit.
    ToneGenerator* soundGen = nullptr;
    FrameObserver* frames = nullptr;
    /// An input device for this run only: it is selected instead of the saved one and not saved.
    std::optional<std::string> inputDeviceForThisRun{};
    /// Room for frames that wait for the main thread.
    FrameRoad::Capacity frameCapacity{};
};

} // namespace veltrano
