// SPDX-License-Identifier: GPL-3.0-or-later
// Controls as seen by classes that know no widgets.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

// All texts are UTF-8. Thread: main.

/// A pop-up menu. Items are counted from 0, separators included.
class PopUpMenu {
public:
    virtual ~PopUpMenu() = default;
    virtual void clear() = 0;
    virtual void addItem(std::string_view title, std::string_view tip = {}) = 0;
    virtual void addSeparator() = 0;
    virtual void selectTitle(std::string_view title) = 0; ///< no such title: nothing is selected
    virtual void selectIndex(int index) = 0;              ///< -1: nothing is selected
    virtual void setEnabled(bool enabled) = 0;
};

/// A slider or a number field.
class ValueControl {
public:
    virtual ~ValueControl() = default;
    virtual void setValue(double value) = 0;
    virtual void setEnabled(bool enabled) = 0;
};

/// A text that is shown and can be read back.
class TextOutlet {
public:
    virtual ~TextOutlet() = default;
    virtual void setText(std::string_view text) = 0;
    virtual std::string text() const = 0;
    virtual void setTip(std::string_view tip) = 0;
    virtual void setHidden(bool hidden) = 0;
};

/// A table or a drawing that shows what its document holds.
class Refreshable {
public:
    virtual ~Refreshable() = default;
    virtual void refresh() = 0; ///< shows the values anew
};

/// The pictures of the lights, named as their files.
enum class LightImage {
    gray16x16,
    green16x16,
    yellow16x16,
    red16x16, // level lights
    gray28x28,
    green28x28,
    blue28x28, // in-tune light
    gray24x24,
    red24x24, // flat and sharp lights
};
constexpr int kLightImages = 9;

/// A light that shows one of the named images.
class Light {
public:
    virtual ~Light() = default;
    virtual void setImage(LightImage image) = 0;
};

} // namespace veltrano
