// SPDX-License-Identifier: GPL-3.0-or-later
// Libraries, documents, a generator and units whose contents a test writes down.
#pragma once

#include "audio/NamedDeviceUnit.h"
#include "audio/ToneGenerator.h"
#include "platform/desktop/ControlPorts.h"
#include "tuning/TuningLibraries.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// Entries in list order. Its normalisation is only a trace: it adds the tonic to every offset.
class ScriptedTemperaments final : public TemperamentLibrary {
public:
    struct Entry {
        std::string fileName;
        CentTable cents{};
    };

    std::optional<int> indexOfTemperamentWithFileName(std::string_view name) const override {
        const auto found = std::ranges::find(entries, name, &Entry::fileName);
        if (found == entries.end()) return std::nullopt;
        return static_cast<int>(found - entries.begin());
    }
    std::optional<CentTable> temperamentCentsForFileName(std::string_view name) const override {
        const auto index = indexOfTemperamentWithFileName(name);
        if (!index) return std::nullopt;
        return entries[std::size_t(*index)].cents;
    }
    void normalizeCents(CentTable& cents, int key) const override {
        for (double& cent : cents)
            cent += key;
    }
    std::string nameForFileName(std::string_view name) const override {
        return "name of " + std::string(name);
    }
    std::string descriptionForFileName(std::string_view name) const override {
        return "description of " + std::string(name);
    }
    std::string pathForFileName(std::string_view name) const override {
        return "/library/" + std::string(name);
    }
    std::string temperamentFileNameAtIndex(int index) const override {
        return entries.at(std::size_t(index)).fileName;
    }
    void updatePopUpButton(PopUpMenu& menu) const override {
        menu.clear();
        menu.addItem("Equal Tempered");
        menu.addSeparator();
        for (const Entry& entry : entries)
            menu.addItem(entry.fileName);
    }

    std::vector<Entry> entries;
};

class ScriptedStretches final : public StretchLibrary {
public:
    struct Entry {
        std::string fileName;
        StretchTable cents{};
    };

    std::optional<int> indexOfStretchWithFileName(std::string_view name) const override {
        const auto found = std::ranges::find(entries, name, &Entry::fileName);
        if (found == entries.end()) return std::nullopt;
        return static_cast<int>(found - entries.begin());
    }
    std::optional<StretchTable> stretchForFileName(std::string_view name) const override {
        const auto index = indexOfStretchWithFileName(name);
        if (!index) return std::nullopt;
        return entries[std::size_t(*index)].cents;
    }
    std::string nameForFileName(std::string_view name) const override {
        return "name of " + std::string(name);
    }
    std::string descriptionForFileName(std::string_view name) const override {
        return "description of " + std::string(name);
    }
    std::string pathForFileName(std::string_view name) const override {
        return "/library/" + std::string(name);
    }
    std::string stretchFileNameAtIndex(int index) const override {
        return entries.at(std::size_t(index)).fileName;
    }
    void updatePopUpButton(PopUpMenu& menu) const override {
        menu.clear();
        menu.addItem("None");
        menu.addSeparator();
        for (const Entry& entry : entries)
            menu.addItem(entry.fileName);
    }

    std::vector<Entry> entries;
};

struct ScriptedTemperament final : EditedTemperament {
    std::string fileName() const override { return path; }
    CentTable temperamentCents() const override { return cents; }
    std::string path;
    CentTable cents{};
};

struct ScriptedStretch final : EditedStretch {
    std::string fileName() const override { return path; }
    StretchTable stretch() const override { return cents; }
    std::string path;
    StretchTable cents{};
};

struct ScriptedUnit final : NamedDeviceUnit {
    explicit ScriptedUnit(std::optional<std::string> itsName) : name(std::move(itsName)) {}
    std::optional<std::string> deviceName() const override { return name; }
    std::optional<std::string> name;
};

/// Lists what it is told, such as "length 1.3".
class RecordingToneGenerator final : public ToneGenerator {
public:
    void playFreq(float frequencyHz, float lengthSeconds) override {
        add("play", frequencyHz);
        add("for", lengthSeconds);
    }
    void setLength(float seconds) override { add("length", seconds); }
    void setVolume(float factor) override { add("volume", factor); }
    void setWaveform(int index) override { add("waveform", index); }

    std::vector<std::string> calls;

private:
    template <class Number>
    void add(std::string_view operation, Number value) {
        char text[32];
        const auto result = std::to_chars(text, text + sizeof text, value);
        calls.push_back(std::string(operation) + ' ' + std::string(text, result.ptr));
    }
};

} // namespace veltrano
