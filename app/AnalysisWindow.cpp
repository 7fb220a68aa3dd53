// SPDX-License-Identifier: GPL-3.0-or-later
// A window beside the tuner window.
#include "app/AnalysisWindow.h"

#include "analysis/PartialView.h"

#include <QWindow>

namespace veltrano {

std::unique_ptr<AnalysisWindow> AnalysisWindow::create(const QString& interfaceFile,
                                                       const ResourceFolder& resources,
                                                       const WidgetMakers& makers, Log& log) {
    QString error;
    auto contents = loadInterfaceFile(resources.interfaceFile(interfaceFile), makers, &error);
    if (!contents) {
        log.line("Failed to load a window: " + error.toStdString());
        return nullptr;
    }
    return std::unique_ptr<AnalysisWindow>(new AnalysisWindow(std::move(contents)));
}

AnalysisWindow::AnalysisWindow(std::unique_ptr<QWidget> contents) {
    setWindowTitle(contents->windowTitle());
    const QSize size = contents->size();
    setMinimumSize(contents->minimumSize());
    setCentralWidget(contents.release());
    resize(size);
}

void AnalysisWindow::orderFront() {
    setShowsWithoutActivating(true);
    show();
    raise();
}

/// The attribute counts when the native window is made; after that only the window's own mark does.
void AnalysisWindow::setShowsWithoutActivating(bool without) {
    setAttribute(Qt::WA_ShowWithoutActivating, without);
    if (windowHandle()) windowHandle()->setProperty("_q_showWithoutActivating", without);
}

void AnalysisWindow::makeKeyAndOrderFront() {
    setShowsWithoutActivating(false);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

std::optional<CommandState> AnalysisWindow::commandState(MenuCommand command) const {
    switch (command) {
    case MenuCommand::closeWindow:
        return CommandState{};
    case MenuCommand::speakStatus:
    case MenuCommand::speakDetails:
        if (view<PartialView>()) return CommandState{};
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

void AnalysisWindow::perform(MenuCommand command) {
    if (command == MenuCommand::closeWindow) {
        close();
    } else if (command == MenuCommand::speakStatus) {
        view<PartialView>()->iaSpeakStatus();
    } else if (command == MenuCommand::speakDetails) {
        view<PartialView>()->iaSpeakDetails();
    }
}

} // namespace veltrano
