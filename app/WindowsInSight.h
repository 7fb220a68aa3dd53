// SPDX-License-Identifier: GPL-3.0-or-later
// Whether any window of the application is to be seen.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace veltrano {

/// The application is hidden while none of its windows is shown unminimised.
/// Thread: main. Owns: nothing; the windows outlive it or end their watch by going.
class WindowsInSight final : public QObject {
    Q_OBJECT
public:
    /// @param changed called with whether one is in sight, each time that changes
    explicit WindowsInSight(std::function<void(bool)> changed) : mChanged(std::move(changed)) {}

    /// From now on @p window counts.
    void add(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tellChange();
    bool isAnyInSight() const;

    const std::function<void(bool)> mChanged;
    std::vector<const QWidget*> mWindows;
    bool mWasInSight = true;
};

} // namespace veltrano
