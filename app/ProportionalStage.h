// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps what a window shows in proportion while the window takes any size.
#pragma once

#include "displays/Geometry.h"
#include "displays/ProposedSize.h"
#include "platform/desktop/OneShotTimer.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace veltrano {

/// The central widget of a window of fixed proportions. Its contents always have the proposed size
/// of its own size, and lie in the middle; a while after the last change of size the window itself
/// takes that size, unless it is maximised, tiled or full screen. Thread: main.
class ProportionalStage final : public QWidget {
    Q_OBJECT
public:
    static constexpr int kSettleMilliseconds = 150;

    /// @param contents whose present size is the minimum; owned
    /// @param timer for tests; null: the event loop's
    ProportionalStage(std::unique_ptr<QWidget> contents, std::unique_ptr<OneShotTimer> timer = {},
                      QWidget* parent = nullptr);
    ~ProportionalStage() override;

    QWidget& contents() { return *mContents; }
    Extent minimum() const { return mMinimum; }
    QSize sizeHint() const override;

    /// Where the keys of a resize come from; the window system's when empty.
    void setKeysSource(std::function<ResizeKeys()> source) { mKeysSource = std::move(source); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void settle();

    QWidget* const mContents; ///< child of this
    const Extent mMinimum;
    const std::unique_ptr<OneShotTimer> mTimer;
    std::function<ResizeKeys()> mKeysSource;
    ResizeKeys mKeys; ///< of the last event
};

} // namespace veltrano
