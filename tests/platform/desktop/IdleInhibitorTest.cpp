// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop is asked for, and given back, while the program listens.
#include "platform/desktop/IdleInhibitor.h"

#include "tests/platform/desktop/SessionBus.h"
#include "tests/platform/desktop/SessionRig.h"

#include <QDBusObjectPath>
#include <gtest/gtest.h>
#include <memory>

namespace veltrano {
namespace {

using Calls = std::vector<std::string>;

const std::string kPortalInhibit =
    "/org/freedesktop/portal/desktop org.freedesktop.portal.Inhibit.Inhibit "
    "\"\" uint 8 reason=Listening to a piano";
const std::string kPortalClose = "/request/1 org.freedesktop.portal.Request.Close";
const std::string kSaverInhibit =
    "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver.Inhibit "
    "\"Veltrano\" \"Listening to a piano\"";
const std::string kSaverUnInhibit =
    "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver.UnInhibit uint 4294967295";

class IdleInhibitorTest : public SessionTest {
protected:
    void SetUp() override {
        if (!SessionBus::isInstalled()) GTEST_SKIP() << "dbus-daemon is not installed";
        bus.emplace(folder.path());
        inhibitor = std::make_unique<IdleInhibitor>(bus->connect("program"));
    }
    ~IdleInhibitorTest() override {
        inhibitor.reset();
        portal.reset();
        screenSaver.reset();
        for (const char* name : {"program", "portal", "saver"})
            QDBusConnection::disconnectFromBus(QLatin1String(name));
    }

    void startPortal(bool grants) {
        portal = std::make_unique<RecordingService>(
            bus->connect("portal"), "org.freedesktop.portal.Desktop", [grants](const QString&) {
                const QVariant request = QVariant::fromValue(QDBusObjectPath("/request/1"));
                return grants ? std::optional(request) : std::nullopt;
            });
    }
    void startScreenSaver(bool grants) {
        screenSaver = std::make_unique<RecordingService>(
            bus->connect("saver"), "org.freedesktop.ScreenSaver", [grants](const QString&) {
                return grants ? std::optional(QVariant(4294967295u)) : std::nullopt;
            });
    }
    /// Waits for that many calls, and whether more come.
    static Calls callsOf(const RecordingService& service, std::size_t expected) {
        EXPECT_TRUE(await([&] { return service.calls.size() >= expected; }));
        serve(30);
        return service.calls;
    }

    std::optional<SessionBus> bus;
    std::unique_ptr<RecordingService> portal, screenSaver;
    std::unique_ptr<IdleInhibitor> inhibitor;
};

TEST_F(IdleInhibitorTest, WhatThePortalGrantedIsClosed) {
    startPortal(true);
    startScreenSaver(true);
    inhibitor->setInhibits(true);
    inhibitor->setInhibits(true);
    EXPECT_EQ(callsOf(*portal, 1), Calls{kPortalInhibit});
    EXPECT_TRUE(inhibitor->inhibits());
    inhibitor->setInhibits(false);
    inhibitor->setInhibits(false);
    EXPECT_EQ(callsOf(*portal, 2), (Calls{kPortalInhibit, kPortalClose}));
    inhibitor->setInhibits(true);
    EXPECT_EQ(callsOf(*portal, 3), (Calls{kPortalInhibit, kPortalClose, kPortalInhibit}));
    EXPECT_EQ(screenSaver->calls, Calls()) << "not both";
}

TEST_F(IdleInhibitorTest, WhatTheScreenSaverGrantedIsGivenBack) {
    for (const bool isPortalThere : {false, true}) {
        SCOPED_TRACE(isPortalThere ? "the portal refuses" : "no portal");
        if (isPortalThere) startPortal(false);
        startScreenSaver(true);
        inhibitor->setInhibits(true);
        EXPECT_EQ(callsOf(*screenSaver, 1), Calls{kSaverInhibit});
        inhibitor->setInhibits(false);
        EXPECT_EQ(callsOf(*screenSaver, 2), (Calls{kSaverInhibit, kSaverUnInhibit}));
        screenSaver.reset();
    }
    EXPECT_EQ(portal->calls, Calls{kPortalInhibit}) << "nothing to close";
}

TEST_F(IdleInhibitorTest, WhereNobodyGrantsItIsAskedForAgainTheNextTime) {
    inhibitor->setInhibits(true); // nobody is there
    serve(50);
    inhibitor->setInhibits(false);
    startPortal(false);
    startScreenSaver(false);
    inhibitor->setInhibits(true);
    EXPECT_EQ(callsOf(*screenSaver, 1), Calls{kSaverInhibit});
    inhibitor->setInhibits(false);
    inhibitor->setInhibits(true);
    EXPECT_EQ(callsOf(*screenSaver, 2), (Calls{kSaverInhibit, kSaverInhibit}));
    EXPECT_EQ(portal->calls, (Calls{kPortalInhibit, kPortalInhibit}));
}

TEST_F(IdleInhibitorTest, ToggledWhileTheAnswerIsOnItsWay) {
    const struct {
        const char* name;
        std::vector<bool> meanwhile;
        Calls calls;
    } kCases[] = {
        {"off", {false}, {kPortalInhibit, kPortalClose}},
        {"off and on", {false, true}, {kPortalInhibit}},
        {"off, on and off", {false, true, false}, {kPortalInhibit, kPortalClose}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        startPortal(true);
        portal->hold();
        inhibitor->setInhibits(true);
        callsOf(*portal, 1);
        for (const bool inhibits : c.meanwhile)
            inhibitor->setInhibits(inhibits);
        portal->answerNow();
        EXPECT_EQ(callsOf(*portal, c.calls.size()), c.calls);
        inhibitor->setInhibits(false);
        serve(30);
        EXPECT_EQ(portal->calls.back(), kPortalClose);
        portal.reset();
    }
}

TEST_F(IdleInhibitorTest, NoLongerWantedWhenThePortalRefusesTheScreenSaverIsNotAsked) {
    startPortal(false);
    startScreenSaver(true);
    portal->hold();
    inhibitor->setInhibits(true);
    callsOf(*portal, 1);
    inhibitor->setInhibits(false);
    portal->answerNow();
    EXPECT_EQ(callsOf(*screenSaver, 0), Calls());
    inhibitor->setInhibits(true);
    EXPECT_EQ(callsOf(*screenSaver, 1), Calls{kSaverInhibit});
}

TEST_F(IdleInhibitorTest, TheScreenSaversLateAnswerIsGivenBackWhenNoLongerWanted) {
    startScreenSaver(true);
    screenSaver->hold();
    inhibitor->setInhibits(true);
    callsOf(*screenSaver, 1);
    inhibitor->setInhibits(false);
    screenSaver->answerNow();
    EXPECT_EQ(callsOf(*screenSaver, 2), (Calls{kSaverInhibit, kSaverUnInhibit}));
}

TEST_F(IdleInhibitorTest, ItsEndWithdraws) {
    startPortal(true);
    inhibitor->setInhibits(true);
    callsOf(*portal, 1);
    inhibitor.reset();
    EXPECT_EQ(callsOf(*portal, 2), (Calls{kPortalInhibit, kPortalClose}));
}

TEST_F(IdleInhibitorTest, ItsEndWhileTheAnswerIsOnItsWay) {
    startPortal(true);
    portal->hold();
    inhibitor->setInhibits(true);
    callsOf(*portal, 1);
    inhibitor.reset();
    portal->answerNow();
    serve(30); // the answer comes to nobody; the request ends with the connection
    EXPECT_EQ(portal->calls, Calls{kPortalInhibit});
}

TEST_F(IdleInhibitorTest, WithoutABusNothingHappens) {
    IdleInhibitor without(QDBusConnection("there is none"));
    without.setInhibits(true);
    EXPECT_TRUE(without.inhibits());
    without.setInhibits(false);
    EXPECT_FALSE(without.inhibits());

    startPortal(true);
    inhibitor->setInhibits(true);
    callsOf(*portal, 1);
    bus->kill(); // while it holds what it asked for
    serve(30);
    inhibitor->setInhibits(false);
    inhibitor->setInhibits(true);
    serve(30);
    EXPECT_TRUE(inhibitor->inhibits());
}

} // namespace
} // namespace veltrano
