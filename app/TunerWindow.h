// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner window.
#pragma once

#include "app/KeyDownWindow.h"
#include "app/TunerOutlets.h"
#include "engine/TunerDisplay.h"
#include "platform/desktop/ImageLibrary.h"
#include "platform/desktop/OneShotTimer.h"
#include "platform/desktop/ResourceFolder.h"

#include <array>
#include <functional>
#include <memory>

namespace veltrano {

class ProportionalStage;

/// Shows what the tuner says, in the views that its interface file lays out, and passes on what
/// belongs to the windows beside it. Thread: main. Owns: its views.
class TunerWindow final : public KeyDownWindow, public TunerDisplay {
    Q_OBJECT
public:
    /// Where the calls for other windows go; an empty function takes no calls.
    struct Neighbours {
        std::function<void(float amplitude)> scopePeak;
        std::function<void(FrameRef frame)> scopeData;
        std::function<void(int key)> pianoNote; ///< -1: no key is marked
    };

    /// Loads the interface file "TunerWindow". Null, with one log line, when that is missing,
    /// broken or lacks a view.
    /// @param images must outlive the window
    /// @param settleTimer for tests; null: the event loop's
    static std::unique_ptr<TunerWindow> create(const ResourceFolder& resources,
                                               ImageLibrary& images, Log& log,
                                               std::unique_ptr<OneShotTimer> settleTimer = {});

    /// Makes the contents @p factor times as large as the interface file has them; not below 1.
    void setScale(double factor);
    /// What closing the window asks for instead; the window itself stays.
    void setCloseRequest(std::function<void()> ask) { mCloseRequest = std::move(ask); }
    /// While motion is reduced the strobe and the scope rest; everything else goes on.
    void setReducesMotion(bool reduces);
    void setNeighbours(Neighbours neighbours) { mNeighbours = std::move(neighbours); }

    ProportionalStage& stage() { return *mStage; }
    const TunerOutlets& outlets() const { return mOutlets; }

    void setText(TunerText field, std::string_view text) override;
    std::string text(TunerText field) const override;
    void setTip(TunerText field, std::string_view tip) override;
    void setHidden(TunerText field, bool hidden) override;
    void setLight(TunerLight light, LightImage image) override;
    void setMeterCent(float cents) override;
    void setMeterThreshold(long cents) override;
    void setMeterEnabled(bool enabled) override;
    void setStrobeSampleRate(float hz) override;
    void setStrobeFrequency(float hz) override;
    void setStrobePeak(float amplitude) override;
    void setStrobeData(FrameRef frame) override;
    void setScopePeak(float amplitude) override;
    void setScopeData(FrameRef frame) override;
    void setPianoNote(int key) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    TunerWindow(std::unique_ptr<QWidget> contents, const TunerOutlets& outlets,
                ImageLibrary& images, std::unique_ptr<OneShotTimer> settleTimer);

    void switchLightsOff(); ///< until the tuner has heard something

    ProportionalStage* mStage; ///< child of this
    const TunerOutlets mOutlets;
    std::array<ImageRef, kLightImages> mLightImages; ///< by LightImage
    Neighbours mNeighbours;
    bool mReducesMotion = false;
    std::function<void()> mCloseRequest; ///< empty: closing just closes
};

} // namespace veltrano
