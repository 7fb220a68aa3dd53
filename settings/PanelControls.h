// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets of the preferences panel behind the ports of their controls.
#pragma once

#include "platform/desktop/ControlPorts.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;
class QWidget;

namespace veltrano {

class NumberField;

// Each shows without announcing: only what the user does reaches the actions. None owns its widget,
// which outlives it. Thread: main.

class PanelPopUp final : public PopUpMenu {
public:
    explicit PanelPopUp(QComboBox& widget) : mWidget(widget) {}
    void clear() override;
    void addItem(std::string_view title, std::string_view tip) override;
    void addSeparator() override;
    void selectTitle(std::string_view title) override;
    void selectIndex(int index) override;
    void setEnabled(bool enabled) override;

private:
    QComboBox& mWidget;
};

class PanelNumber final : public ValueControl {
public:
    explicit PanelNumber(NumberField& widget) : mWidget(widget) {}
    void setValue(double value) override;
    void setEnabled(bool enabled) override;

private:
    NumberField& mWidget;
};

class PanelSlider final : public ValueControl {
public:
    /// @param stepsPerUnit of the slider, which counts whole steps
    explicit PanelSlider(QSlider& widget, int stepsPerUnit = 1)
        : mWidget(widget), mStepsPerUnit(stepsPerUnit) {}
    void setValue(double value) override;
    void setEnabled(bool enabled) override;

private:
    QSlider& mWidget;
    const int mStepsPerUnit;
};

class PanelCheckBox final : public ValueControl {
public:
    explicit PanelCheckBox(QCheckBox& widget) : mWidget(widget) {}
    void setValue(double value) override;
    void setEnabled(bool enabled) override;

private:
    QCheckBox& mWidget;
};

/// Radio buttons, their rows as ids.
class PanelRadioButtons final : public ValueControl {
public:
    explicit PanelRadioButtons(QButtonGroup& group) : mGroup(group) {}
    void setValue(double row) override;
    void setEnabled(bool enabled) override;

private:
    QButtonGroup& mGroup;
};

/// A text beside a slider; screen readers hear it with the slider.
class PanelText final : public TextOutlet {
public:
    PanelText(QLabel& widget, QWidget& described) : mWidget(widget), mDescribed(described) {}
    void setText(std::string_view text) override;
    std::string text() const override;
    void setTip(std::string_view tip) override;
    void setHidden(bool hidden) override;

private:
    QLabel& mWidget;
    QWidget& mDescribed;
};

/// A whole number as a text.
class PanelNumberText final : public ValueControl {
public:
    PanelNumberText(QLabel& widget, QWidget& described) : mText(widget, described) {}
    void setValue(double value) override;
    void setEnabled(bool) override {}

private:
    PanelText mText;
};

} // namespace veltrano
