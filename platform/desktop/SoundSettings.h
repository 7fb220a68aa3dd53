// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the desktop's own sound settings.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <functional>

namespace veltrano {

class DocumentPanels;

/// Thread: main. Errors: when there is no tool, or it cannot be started, one alert says what to
/// install.
class SoundSettings {
    Q_DECLARE_TR_FUNCTIONS(SoundSettings)
public:
    /// How programs are found and started; the system's where a function is empty.
    struct System {
        std::function<QString(const QString& program)> find{}; ///< empty text: it is not there
        std::function<bool(const QString& path, const QStringList& arguments)> start{};
        QString currentDesktop{}; ///< empty: that of the environment
    };

    /// @param panels outlives this
    explicit SoundSettings(DocumentPanels& panels) : SoundSettings(panels, System{}) {}
    SoundSettings(DocumentPanels& panels, System system);

    /// Starts the first tool that is installed and can be started.
    void open();

private:
    DocumentPanels& mPanels;
    System mSystem;
};

} // namespace veltrano
