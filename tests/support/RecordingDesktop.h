// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop whose answers a test writes down: panels, a pasteboard, windows.
#pragma once

#include "platform/desktop/DocumentPorts.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace veltrano {

// Thread: main.

/// Answers with what a test put in, cancels when it put in nothing, and lists what was asked.
class RecordingPanels final : public DocumentPanels {
public:
    SaveAnswer askToSave(std::string_view displayName) override {
        asked.push_back("save? " + std::string(displayName));
        if (whileAsking) whileAsking();
        return saveAnswer;
    }
    bool confirm(std::string_view title, std::string_view message,
                 std::string_view action) override {
        asked.push_back("confirm? " + std::string(title));
        lastMessage = message;
        lastAction = action;
        return confirms;
    }
    void alert(std::string_view title, std::string_view message) override {
        asked.push_back("alert: " + std::string(title));
        alerts.push_back(std::string(title) + "\n" + std::string(message));
        lastMessage = message;
    }
    std::optional<std::string> savePath(const SavePanel& panel) override {
        savePanels.push_back(panel);
        return take(savePaths);
    }
    std::vector<std::string> openPaths(const OpenPanel& panel) override {
        openPanels.push_back(panel);
        return chosen;
    }
    std::optional<std::string> chooseFolder(const OpenPanel& panel) override {
        folderPanels.push_back(panel);
        return take(folders);
    }
    void beep() override { ++beeps; }

    SaveAnswer saveAnswer = SaveAnswer::cancel;
    std::function<void()> whileAsking; ///< what the event loop does while the user thinks
    bool confirms = false;
    std::deque<std::string> savePaths; ///< answers, one each
    std::deque<std::string> folders;
    std::vector<std::string> chosen;

    std::vector<std::string> asked;  ///< questions and alerts in their order
    std::vector<std::string> alerts; ///< title and message
    std::string lastMessage;
    std::string lastAction;
    std::vector<SavePanel> savePanels;
    std::vector<OpenPanel> openPanels;
    std::vector<OpenPanel> folderPanels;
    int beeps = 0;

private:
    static std::optional<std::string> take(std::deque<std::string>& answers) {
        if (answers.empty()) return std::nullopt;
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

/// One type at a time, as the desktop's.
class MemoryPasteboard final : public Pasteboard {
public:
    void write(std::string_view type, std::string_view bytes) override {
        contents.clear();
        contents.emplace(type, bytes);
    }
    std::optional<std::string> read(std::string_view type) const override {
        const auto found = contents.find(type);
        if (found == contents.end()) return std::nullopt;
        return found->second;
    }

    std::map<std::string, std::string, std::less<>> contents;
};

/// What a test looks at when the window itself is gone.
struct WindowRecord {
    std::vector<std::string> titles; ///< "name [path]", with "*" at the end when edited
    int shown = 0;
    bool isOpen = true;
    std::optional<PrintInfo> pageSetup; ///< the answer of page setup
    std::vector<std::string> printed;   ///< "panel" or "at once"
};

class RecordingDocumentWindow final : public DocumentWindow {
public:
    /// @param record outlives the window
    explicit RecordingDocumentWindow(WindowRecord& record) : mRecord(record) {}
    ~RecordingDocumentWindow() override { mRecord.isOpen = false; }

    void showWindow() override { ++mRecord.shown; }
    void setTitle(std::string_view displayName, std::string_view path, bool isEdited) override {
        mRecord.titles.push_back(std::string(displayName) + " [" + std::string(path) + "]" +
                                 (isEdited ? "*" : ""));
    }
    std::optional<PrintInfo> runPageSetup(const PrintInfo&) override { return mRecord.pageSetup; }
    void print(const PrintInfo&, bool showsPanel) override {
        mRecord.printed.emplace_back(showsPanel ? "panel" : "at once");
    }

private:
    WindowRecord& mRecord;
};

} // namespace veltrano
