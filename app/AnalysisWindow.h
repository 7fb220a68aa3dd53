// SPDX-License-Identifier: GPL-3.0-or-later
// A window beside the tuner window.
#pragma once

#include "app/MenuCommands.h"
#include "platform/desktop/InterfaceFile.h"
#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"

#include <QMainWindow>
#include <memory>

namespace veltrano {

class PartialView;

/// One view in a window of its own. Closing only hides it. Thread: main.
class AnalysisWindow final : public QMainWindow, public CommandHandler {
    Q_OBJECT
public:
    /// Loads the interface file of that name. Null, with one log line, when that is missing or
    /// broken.
    static std::unique_ptr<AnalysisWindow> create(const QString& interfaceFile,
                                                  const ResourceFolder& resources,
                                                  const WidgetMakers& makers, Log& log);

    /// Visible and in front of the others, without taking the keyboard focus.
    void orderFront();
    void makeKeyAndOrderFront();
    /// The view of that class; null: the window holds another one.
    template <class View>
    View* view() const {
        return findChild<View*>();
    }

    /// Close, and for partials the spoken reports.
    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

private:
    explicit AnalysisWindow(std::unique_ptr<QWidget> contents);

    void setShowsWithoutActivating(bool without);
};

} // namespace veltrano
