// SPDX-License-Identifier: GPL-3.0-or-later
// A document with everything around it, in a folder of its own.
#pragma once

#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/TextDocument.h"

#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace veltrano {

using Lines = std::vector<std::string>;

inline std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void fillFile(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A folder that every user may look into.
class TestFolder {
public:
    TestFolder() { std::filesystem::permissions(folder(), std::filesystem::perms(0755)); }
    /// Also what a test has protected goes.
    ~TestFolder() {
        for (const auto& entry : std::filesystem::directory_iterator(folder())) {
            if (!entry.is_symlink() && entry.is_directory())
                std::filesystem::permissions(entry, std::filesystem::perms(0755));
        }
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string folder() const { return mFolder.path().toStdString(); }
    std::string path(std::string_view name) const { return folder() + "/" + std::string(name); }
    std::string file(std::string_view name, std::string_view bytes) const {
        fillFile(path(name), bytes);
        return path(name);
    }
    /// The names of what lies in it, in order.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            found.push_back(entry.path().filename());
        std::ranges::sort(found);
        return found;
    }

private:
    QTemporaryDir mFolder;
};

/// Works with the rights of a user who owns nothing, while it lives; without root it is the test's
/// own user, who then has to be refused by permissions.
class AsNobody {
public:
    AsNobody() {
        if (::geteuid() == 0) mIsChanged = ::seteuid(kNobody) == 0;
    }
    ~AsNobody() {
        if (mIsChanged && ::seteuid(0) != 0) std::abort();
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    bool mIsChanged = false;
};

class DocumentRig : public testing::Test {
protected:
    DocumentServices services() { return {log, pasteboard, panels}; }

    /// A document of that file, with a window.
    std::unique_ptr<TextDocument> opened(const std::string& path) {
        auto document = std::make_unique<TextDocument>(services());
        document->setWindow(std::make_unique<RecordingDocumentWindow>(window));
        EXPECT_TRUE(document->readFromFile(path, "Test Text"));
        return document;
    }
    std::unique_ptr<TextDocument> openedWith(std::string_view text) {
        return opened(files.file("a.text", text));
    }

    TestFolder files;
    RecordingLog log;
    RecordingPanels panels;
    MemoryPasteboard pasteboard;
    WindowRecord window;
};

} // namespace veltrano
