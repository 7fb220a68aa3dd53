// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets of the preferences panel behind the ports of their controls.
#include "settings/PanelControls.h"

#include "settings/NumberField.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <cmath>

namespace veltrano {

void PanelPopUp::clear() { mWidget.clear(); }

void PanelPopUp::addItem(std::string_view title, std::string_view tip) {
    mWidget.addItem(QString::fromUtf8(title));
    if (!tip.empty())
        mWidget.setItemData(mWidget.count() - 1, QString::fromUtf8(tip), Qt::ToolTipRole);
}

void PanelPopUp::addSeparator() { mWidget.insertSeparator(mWidget.count()); }

void PanelPopUp::selectTitle(std::string_view title) {
    mWidget.setCurrentIndex(mWidget.findText(QString::fromUtf8(title)));
}

void PanelPopUp::selectIndex(int index) {
    mWidget.setCurrentIndex(index < mWidget.count() ? index : -1);
}

void PanelPopUp::setEnabled(bool enabled) { mWidget.setEnabled(enabled); }

void PanelNumber::setValue(double value) { mWidget.showValue(value); }

void PanelNumber::setEnabled(bool enabled) { mWidget.setEnabled(enabled); }

void PanelSlider::setValue(double value) {
    const QSignalBlocker silence(mWidget);
    mWidget.setValue(static_cast<int>(std::lround(value * mStepsPerUnit)));
    mWidget.update(); // the style hears of a new value through the signal
}

void PanelSlider::setEnabled(bool enabled) { mWidget.setEnabled(enabled); }

void PanelCheckBox::setValue(double value) { mWidget.setChecked(value != 0); }

void PanelCheckBox::setEnabled(bool enabled) { mWidget.setEnabled(enabled); }

void PanelRadioButtons::setValue(double row) {
    if (QAbstractButton* button = mGroup.button(static_cast<int>(row))) button->setChecked(true);
}

void PanelRadioButtons::setEnabled(bool enabled) {
    for (QAbstractButton* button : mGroup.buttons())
        button->setEnabled(enabled);
}

void PanelText::setText(std::string_view text) {
    mWidget.setText(QString::fromUtf8(text));
    mDescribed.setAccessibleDescription(QString::fromUtf8(text));
}

std::string PanelText::text() const { return mWidget.text().toStdString(); }

void PanelText::setTip(std::string_view tip) { mWidget.setToolTip(QString::fromUtf8(tip)); }

void PanelText::setHidden(bool hidden) { mWidget.setHidden(hidden); }

void PanelNumberText::setValue(double value) { mText.setText(std::to_string(std::lround(value))); }

} // namespace veltrano
