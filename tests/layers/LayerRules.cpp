// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/layers/LayerRules.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace veltrano {

namespace {

/// Standard headers that a core file must not use: time is an argument there, threads are not
/// known.
const std::set<std::string> kClocksAndThreads{
    "barrier", "chrono",    "condition_variable", "ctime",      "future", "latch",
    "mutex",   "semaphore", "shared_mutex",       "stop_token", "thread",
};

/// Libraries that one folder alone knows.
const std::map<std::string, std::string> kFolderOfLibrary{
    {"pulse", "platform/audio"}, {"sndfile", "platform/audio"}, {"fftw3", "platform/dsp"}};

std::string roomOf(std::string_view path) { return std::string(path.substr(0, path.find('/'))); }

std::string folderOf(std::string_view path) { return std::string(path.substr(0, path.rfind('/'))); }

/// "core", "plain" or "views".
LayerRules::Kind kindNamed(std::string_view name) {
    if (name == "core") return LayerRules::Kind::core;
    return name == "plain" ? LayerRules::Kind::plain : LayerRules::Kind::views;
}

struct Include {
    std::string header;
    bool isQuoted = false;
};

/// What the line includes; an empty header when it is no such line.
Include includeOf(std::string_view line) {
    const auto skipBlanks = [&line] {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    };
    skipBlanks();
    if (!line.starts_with('#')) return {};
    line.remove_prefix(1);
    skipBlanks();
    if (!line.starts_with("include")) return {};
    line.remove_prefix(7);
    skipBlanks();
    if (line.empty() || (line.front() != '"' && line.front() != '<')) return {};
    const bool isQuoted = line.front() == '"';
    const std::size_t end = line.find(isQuoted ? '"' : '>', 1);
    return {std::string(line.substr(1, end - 1)), isQuoted};
}

/// <QString> or <QtCore/QString>; no other library begins with that letter.
bool isQt(std::string_view header) { return header.starts_with('Q'); }

/// Of Qt's libraries beside QtCore that have nothing to do with windows.
const std::set<std::string> kOtherQtWithoutWindows{
    "QDBusConnection",   "QDBusMessage", "QDBusObjectPath", "QDBusPendingCallWatcher",
    "QDBusPendingReply", "QDBusVariant", "QLocalServer",    "QLocalSocket",
    "QTextToSpeech"};

} // namespace

LayerRules::LayerRules(std::string_view rooms, std::string_view manifest,
                       std::set<std::string> qtCoreHeaders)
    : mQtCoreHeaders(std::move(qtCoreHeaders)) {
    std::istringstream roomLines{std::string(rooms)};
    for (std::string line; std::getline(roomLines, line);) {
        std::istringstream words(line);
        std::string room;
        if (!(words >> room) || room.front() == '#') continue;
        room.pop_back(); // the colon
        auto& allowed = mMayInclude[room];
        allowed.insert(room);
        for (std::string other; words >> other;)
            allowed.insert(other);
    }
    std::istringstream files{std::string(manifest)};
    for (std::string library, kind, path; files >> library >> kind >> path;) {
        mKinds.emplace(path, kindNamed(kind));
    }
}

std::vector<std::string> LayerRules::violations(const std::string& path,
                                                std::string_view contents) const {
    const auto listed = mKinds.find(path);
    if (listed == mKinds.end()) return {path + ":1: is in no library's list"};
    std::vector<std::string> found;
    std::istringstream lines{std::string(contents)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        const Include include = includeOf(line);
        if (include.header.empty()) continue;
        const std::string fault = include.isQuoted
                                      ? faultOfOwn(path, listed->second, include.header)
                                      : faultOfForeign(path, listed->second, include.header);
        if (!fault.empty()) found.push_back(path + ':' + std::to_string(number) + ": " + fault);
    }
    return found;
}

std::string LayerRules::faultOfOwn(const std::string& path, Kind kind,
                                   const std::string& header) const {
    if (header.find('/') == std::string::npos) {
        // The one file without a folder: what moc writes beside its source.
        if (header.ends_with(".moc")) return {};
        return '"' + header + "\" has no folder";
    }
    const auto target = mKinds.find(header);
    if (target == mKinds.end()) return '"' + header + "\" is in no library's list";
    const auto allowed = mMayInclude.find(roomOf(path));
    if (allowed == mMayInclude.end() || !allowed->second.contains(roomOf(header))) {
        return roomOf(path) + " may not include " + header;
    }
    if (target->second > kind) return "a purer file may not include " + header;
    return {};
}

std::string LayerRules::faultOfForeign(const std::string& path, Kind kind,
                                       const std::string& header) const {
    for (const auto& [library, folder] : kFolderOfLibrary) {
        if (!header.starts_with(library + '/') && !header.starts_with(library + '.')) continue;
        if (folderOf(path) != folder) return '<' + header + "> belongs to " + folder;
        return kind == Kind::core ? "a core file may not include <" + header + '>' : std::string();
    }
    if (kind == Kind::core) {
        const bool isStandard = header.find_first_of("./") == std::string::npos && !isQt(header);
        if (!isStandard || kClocksAndThreads.contains(header)) {
            return "a core file may not include <" + header + '>';
        }
    }
    if (kind == Kind::plain && isQt(header) && !mQtCoreHeaders.contains(header) &&
        !kOtherQtWithoutWindows.contains(header)) {
        return "a plain file may not include <" + header + ">, which is not of QtCore";
    }
    return {};
}

} // namespace veltrano
