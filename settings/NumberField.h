// SPDX-License-Identifier: GPL-3.0-or-later
// A number that is typed or stepped.
#pragma once

#include <QDoubleSpinBox>

namespace veltrano {

/// Shows as many decimals as the number needs, six at most, with a point in every locale; a comma
/// is understood when it is typed. Announces a number when it is complete, not with each key.
/// Thread: main.
class NumberField final : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit NumberField(QWidget* parent = nullptr);

    /// Shows @p value, whatever the range, and announces nothing.
    void showValue(double value);

    QString textFromValue(double value) const override;
    double valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
};

} // namespace veltrano
