// SPDX-License-Identifier: GPL-3.0-or-later
// A number that is typed or stepped.
#include "settings/NumberField.h"

#include "platform/foundation/LenientNumber.h"

#include <QSignalBlocker>
#include <algorithm>

namespace veltrano {

namespace {

constexpr int kMostDecimals = 6;

} // namespace

NumberField::NumberField(QWidget* parent) : QDoubleSpinBox(parent) {
    setLocale(QLocale::c());
    setDecimals(kMostDecimals);
    setKeyboardTracking(false);
    setGroupSeparatorShown(false);
}

void NumberField::showValue(double value) {
    const QSignalBlocker silence(this);
    setRange(std::min(minimum(), value), std::max(maximum(), value));
    setValue(value);
}

QString NumberField::textFromValue(double value) const {
    std::string text = fixedDecimals(value, kMostDecimals);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return QString::fromStdString(text);
}

double NumberField::valueFromText(const QString& text) const {
    QString number = text;
    return QDoubleSpinBox::valueFromText(number.replace(u',', u'.'));
}

QValidator::State NumberField::validate(QString& text, int& position) const {
    QString number = text;
    return QDoubleSpinBox::validate(number.replace(u',', u'.'), position);
}

} // namespace veltrano
