// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences panel with its real widgets, over settings and devices of a test.
#pragma once

#include "settings/InputDeviceListener.h"
#include "settings/NumberField.h"
#include "settings/PreferencesPanel.h"
#include "tests/audio/AUOutputTestBase.h"
#include "tests/settings/PreferencesTestBase.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QTabWidget>
#include <QTest>
#include <memory>

namespace veltrano {

/// Microphones "M : A", with a volume of 50 %, and "M : B", without one that can be written;
/// loudspeakers "M : C" and "M : D". The first of each is in use.
class PanelWindowTestBase : public PreferencesTestBase, protected InputDeviceListener {
protected:
    PanelWindowTestBase() {
        hardware.setDefaultDevice(kIn, microphoneA);
        input = std::make_unique<AUInputUnit>(registry);
        input->setInputDeviceWithName(std::nullopt);
        output = std::make_unique<AUOutputUnit>(registry, outputUnits);
        output->setOutputDeviceWithName("M : C");
        soundGenAtStart = &generator;
        start().setController(this);
        makePanel(ResourceFolder(shipped));
    }

    void makePanel(const ResourceFolder& resources) {
        panel.reset();
        PreferencesPanel::Ports ports{.preferences = *preferences,
                                      .temperaments = &temperaments,
                                      .stretches = &stretches,
                                      .inputUnit = input.get(),
                                      .outputUnit = output.get(),
                                      .resources = resources,
                                      .log = log};
        ports.openSoundSettings = [this] { ++soundSettingsOpened; };
        ports.didLoad = [this](QWidget& window) { loaded.push_back(&window); };
        ports.beep = [this] { ++beeps; };
        panel = std::make_unique<PreferencesPanel>(std::move(ports));
    }

    /// Shows the panel, and forgets what was announced and told until then.
    void show() {
        panel->showPanel();
        ASSERT_TRUE(panel->window());
        ASSERT_TRUE(QTest::qWaitForWindowActive(panel->window()));
        mainThread.runAll();
        forget();
    }
    void forget() {
        posted.clear();
        generator.calls.clear();
        hardware.clearCalls();
        heard.clear();
    }

    /// A control, on the tab that is in front now.
    template <class Widget = QWidget>
    Widget& control(const char* name) {
        auto* found = panel->window()->findChild<Widget*>(QLatin1String(name));
        if (!found) throw std::invalid_argument(name);
        auto& tabs = *panel->window()->findChild<QTabWidget*>("mTabView");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            if (tabs.widget(tab)->isAncestorOf(found)) tabs.setCurrentIndex(tab);
        }
        return *found;
    }
    /// Gives a control the focus and presses keys there.
    void press(const char* name, std::initializer_list<Qt::Key> keys) {
        QWidget& widget = control(name);
        widget.setFocus();
        for (const Qt::Key key : keys)
            QTest::keyClick(&widget, key);
    }
    /// Replaces what a number field holds; it is not complete yet.
    void type(const char* name, const char* text) {
        auto& field = control<NumberField>(name);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QLatin1String(text));
    }
    /// Chooses an item of a menu with the mouse.
    void choose(const char* name, int index) {
        auto& menu = control<QComboBox>(name);
        QTest::mouseClick(&menu, Qt::LeftButton);
        QAbstractItemView& list = *menu.view();
        const QRect item = list.visualRect(list.model()->index(index, 0));
        QTest::mouseMove(list.viewport(), item.center());
        QTest::qWait(0);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, item.center());
    }

    void inputDevicePopupChanged() override {
        heard.push_back(input->inputDeviceName().value_or("none"));
    }

    const QString shipped = QStringLiteral(VELTRANO_SOURCE_RESOURCES);
    RecordingLog log;
    PostQueue mainThread;
    VirtualHardware hardware;
    const DeviceId microphoneA = hardware.addDevice(withVolume("A", true));
    const DeviceId microphoneB = hardware.addDevice(withVolume("B", false));
    const DeviceId speakers[2] = {hardware.addDevice(loudspeaker("C")),
                                  hardware.addDevice(loudspeaker("D"))};
    AUUnitRegistry registry{hardware,
                            [this](auto function) { mainThread.post(std::move(function)); }, log};
    OutputUnitScript script;
    ScriptedOutputUnits outputUnits{script};
    std::unique_ptr<AUInputUnit> input;
    std::unique_ptr<AUOutputUnit> output;
    std::unique_ptr<PreferencesPanel> panel; // goes before the units and the settings
    Names heard;                             ///< input devices the controller was told of
    std::vector<QWidget*> loaded;            ///< windows that were announced
    int beeps = 0;
    int soundSettingsOpened = 0;

private:
    static VirtualDevice withVolume(const std::string& name, bool isWritable) {
        VirtualDevice device = microphone(name);
        device.input->volumes = {{0.5f, isWritable}};
        return device;
    }
};

} // namespace veltrano
