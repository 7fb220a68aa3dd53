// SPDX-License-Identifier: GPL-3.0-or-later
// Light and dark as the desktop's portal tells them.
#include "platform/desktop/DesktopColorScheme.h"

#include "tests/platform/desktop/SessionBus.h"
#include "tests/platform/desktop/SessionRig.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <gtest/gtest.h>
#include <memory>

namespace veltrano {
namespace {

using Schemes = std::vector<ColorScheme>;

class DesktopColorSchemeTest : public SessionTest {
protected:
    void SetUp() override {
        if (!SessionBus::isInstalled()) GTEST_SKIP() << "dbus-daemon is not installed";
        bus.emplace(folder.path());
    }
    ~DesktopColorSchemeTest() override {
        scheme.reset();
        portal.reset();
        for (const char* name : {"program", "portal"})
            QDBusConnection::disconnectFromBus(QLatin1String(name));
    }

    /// @param answer what the portal's "Read" gives; empty: an error
    void start(std::optional<QVariant> answer) {
        portal = std::make_unique<RecordingService>(bus->connect("portal"),
                                                    "org.freedesktop.portal.Desktop",
                                                    [answer](const QString&) { return answer; });
        follow();
    }
    void follow() {
        scheme = std::make_unique<DesktopColorScheme>(
            [this](ColorScheme told) { heard.push_back(told); }, bus->connect("program"));
    }
    static QVariant wrapped(const QVariant& value) {
        return QVariant::fromValue(QDBusVariant(value));
    }
    void announce(const char* group, const char* key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        signal << QString(group) << QString(key) << wrapped(value);
        bus->connect("portal").send(signal);
    }
    Schemes heardAfter(std::size_t count) {
        EXPECT_TRUE(await([&] { return heard.size() >= count; }));
        serve(30);
        return heard;
    }

    std::optional<SessionBus> bus;
    std::unique_ptr<RecordingService> portal;
    std::unique_ptr<DesktopColorScheme> scheme;
    Schemes heard;
};

TEST_F(DesktopColorSchemeTest, ThePortalsAnswerIsTold) {
    const std::pair<unsigned, ColorScheme> kRows[] = {{0, ColorScheme::noPreference},
                                                      {1, ColorScheme::dark},
                                                      {2, ColorScheme::light},
                                                      {7, ColorScheme::noPreference}};
    for (const auto& [number, expected] : kRows) {
        heard.clear();
        start(wrapped(number));
        EXPECT_EQ(heardAfter(1), Schemes{expected}) << number;
        EXPECT_EQ(portal->calls.size(), 1u);
        EXPECT_TRUE(portal->calls[0].starts_with(
            "/org/freedesktop/portal/desktop org.freedesktop.portal.Settings.Read "
            "\"org.freedesktop.appearance\" \"color-scheme\""))
            << portal->calls[0];
        scheme.reset();
        portal.reset();
    }
}

TEST_F(DesktopColorSchemeTest, ANumberThatIsWrappedOnceMoreIsUnderstood) {
    start(wrapped(wrapped(1u)));
    EXPECT_EQ(heardAfter(1), Schemes{ColorScheme::dark});
}

TEST_F(DesktopColorSchemeTest, ChangesOfThisSettingAreFollowedAndOfNoOther) {
    start(wrapped(0u));
    heardAfter(1);
    announce("org.freedesktop.appearance", "contrast", 1u);
    announce("org.gnome.desktop.interface", "color-scheme", 1u);
    announce("org.freedesktop.appearance", "color-scheme", 1u);
    announce("org.freedesktop.appearance", "color-scheme", 2u);
    EXPECT_EQ(heardAfter(3),
              (Schemes{ColorScheme::noPreference, ColorScheme::dark, ColorScheme::light}));
}

TEST_F(DesktopColorSchemeTest, WithoutAPortalNothingIsToldUntilItSpeaks) {
    follow();
    serve(100);
    EXPECT_EQ(heard, Schemes());
    portal =
        std::make_unique<RecordingService>(bus->connect("portal"), "org.freedesktop.portal.Desktop",
                                           [](const QString&) { return std::nullopt; });
    announce("org.freedesktop.appearance", "color-scheme", 1u);
    EXPECT_EQ(heardAfter(1), Schemes{ColorScheme::dark});
}

TEST(DesktopColorSchemeWithoutBus, NothingHappens) {
    int heard = 0;
    const DesktopColorScheme scheme([&heard](ColorScheme) { ++heard; }, QDBusConnection("none"));
    EXPECT_EQ(heard, 0);
}

} // namespace
} // namespace veltrano
