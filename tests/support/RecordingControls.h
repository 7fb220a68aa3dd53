// SPDX-License-Identifier: GPL-3.0-or-later
// Controls that keep what they are told for a test to compare.
#pragma once

#include "platform/desktop/ControlPorts.h"

#include <charconv>
#include <functional>
#include <string>
#include <vector>

namespace veltrano {

// Thread: main. What each is told can also be heard in order with others: "clear", "select 3",
// "440.5", "enabled 1", a text. Single items of a menu are not told.
using ControlEar = std::function<void(const std::string& call)>;

/// A pop-up menu as it would be seen. A separator is an item titled "-".
class RecordingPopUp final : public PopUpMenu {
public:
    void clear() override {
        titles.clear();
        tips.clear();
        selected = -1;
        ++clears;
        if (heard) heard("clear");
    }
    void addItem(std::string_view title, std::string_view tip) override {
        titles.emplace_back(title);
        tips.emplace_back(tip);
    }
    void addSeparator() override { addItem("-", {}); }
    void selectTitle(std::string_view title) override {
        selected = -1;
        for (std::size_t index = 0; index < titles.size() && selected < 0; ++index) {
            if (titles[index] == title) selected = static_cast<int>(index);
        }
    }
    void selectIndex(int index) override {
        selected = index;
        if (heard) heard("select " + std::to_string(index));
    }
    void setEnabled(bool enabled) override {
        isEnabled = enabled;
        if (heard) heard(enabled ? "enabled 1" : "enabled 0");
    }

    ControlEar heard;
    std::vector<std::string> titles;
    std::vector<std::string> tips;
    int selected = -1; ///< -1: nothing
    bool isEnabled = true;
    int clears = 0; ///< how often it was emptied
};

/// A slider.
class RecordingValue final : public ValueControl {
public:
    void setValue(double number) override {
        value = number;
        if (heard) heard(text(number));
    }
    void setEnabled(bool enabled) override {
        isEnabled = enabled;
        if (heard) heard(enabled ? "enabled 1" : "enabled 0");
    }

    ControlEar heard;
    double value = -1;
    bool isEnabled = true;

private:
    static std::string text(double number) {
        char digits[32];
        return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
    }
};

/// A text field.
class RecordingText final : public TextOutlet {
public:
    void setText(std::string_view text) override {
        shown = text;
        if (heard) heard(shown);
    }
    std::string text() const override { return shown; }
    void setTip(std::string_view text) override { tip = text; }
    void setHidden(bool hidden) override { isHidden = hidden; }

    ControlEar heard;
    std::string shown;
    std::string tip;
    bool isHidden = false;
};

} // namespace veltrano
