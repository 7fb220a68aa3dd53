// SPDX-License-Identifier: GPL-3.0-or-later
// Panels where nobody sits in front of the screen.
#pragma once

#include "platform/desktop/DocumentPorts.h"

#include <functional>
#include <utility>

namespace veltrano {

/// Answers every question at once as its default answer, so that nothing is overwritten or lost by
/// it; what would be shown goes to a function as one line. Thread: main.
class UnattendedPanels final : public DocumentPanels {
public:
    /// @param tell takes what an alert or a question says
    explicit UnattendedPanels(std::function<void(std::string_view line)> tell)
        : mTell(std::move(tell)) {}

    SaveAnswer askToSave(std::string_view) override { return SaveAnswer::cancel; }
    bool confirm(std::string_view title, std::string_view message, std::string_view) override {
        alert(title, message);
        return false;
    }
    void alert(std::string_view title, std::string_view message) override {
        mTell(std::string(title) + (message.empty() ? "" : " ") + std::string(message));
    }
    std::optional<std::string> savePath(const SavePanel&) override { return std::nullopt; }
    std::vector<std::string> openPaths(const OpenPanel&) override { return {}; }
    std::optional<std::string> chooseFolder(const OpenPanel&) override { return std::nullopt; }
    void beep() override {}

private:
    const std::function<void(std::string_view)> mTell;
};

} // namespace veltrano
