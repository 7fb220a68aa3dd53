// SPDX-License-Identifier: GPL-3.0-or-later
// What several readouts say together.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

namespace veltrano {

class AccessibleReadout;
class AutoResizeTextField;
class DotView;

/// Texts and lights that are read as one value. What is hidden or empty is left out, and so is a
/// light that is off; level lights are counted. Thread: main.
class ReadoutGroup {
    Q_DECLARE_TR_FUNCTIONS(veltrano::ReadoutGroup)

public:
    /// How texts are joined: "440.000 Hz", or by name: "Temperament: Young, Stretch: Grand".
    enum class Joining { words, list };

    /// @param reader announces itself when a member changes
    /// @param members not owned; what is no readout is left out
    ReadoutGroup(const std::vector<QWidget*>& members, AccessibleReadout& reader);

    /// Accidentals are words here: a voice may not know the signs.
    QString value(Joining joining) const;

private:
    QStringList litLights() const;
    QStringList texts(Joining joining) const;

    std::vector<const AutoResizeTextField*> mTexts;
    std::vector<const DotView*> mLights;
    std::vector<const DotView*> mLevels;
};

} // namespace veltrano
