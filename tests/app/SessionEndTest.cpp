// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the desktop's session.
#include "app/SessionEnd.h"

#include <QApplication>
#include <QCloseEvent>
#include <QSessionManager>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

/// A document with changes: closing it would ask.
class AskingWindow final : public QWidget {
public:
    int asked = 0;

protected:
    void closeEvent(QCloseEvent* event) override {
        ++asked;
        event->ignore();
    }
};

class SessionEndTest : public testing::Test {
protected:
    SessionEndTest() { window.show(); }

    /// What Qt does when a session manager's "die" or the platform's quit arrives.
    static bool askToQuit() {
        QEvent quit(QEvent::Quit);
        return QCoreApplication::sendEvent(qApp, &quit);
    }

    AskingWindow window;
    int saves = 0, ends = 0;
};

TEST_F(SessionEndTest, AskedToQuitItEndsWithoutAskingForDocuments) {
    const SessionEnd sessionEnd([this] { ++saves; }, [this] { ++ends; });
    EXPECT_TRUE(askToQuit());
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(window.asked, 0);
    EXPECT_TRUE(window.isVisible()) << "the settings are written while the windows are there";
}

TEST_F(SessionEndTest, WhenTheSessionIsSavedItGoesOn) {
    const SessionEnd sessionEnd([this] { ++saves; }, [this] { ++ends; });
    // Qt's own signal; a session manager cannot be made here, and none of it is looked at.
    alignas(QSessionManager) unsigned char manager[sizeof(QSessionManager)] = {};
    emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(saves, 1) << "at once: the windows may be gone next";
    EXPECT_EQ(ends, 0) << "the user may have asked for no more than that";
    EXPECT_EQ(window.asked, 0);
}

TEST_F(SessionEndTest, OtherEventsGoTheirWay) {
    const SessionEnd sessionEnd([this] { ++saves; }, [this] { ++ends; });
    QEvent quitOfAWindow(QEvent::Quit);
    QCoreApplication::sendEvent(&window, &quitOfAWindow);
    QEvent other(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(qApp, &other);
    window.close();
    EXPECT_EQ(window.asked, 1);
    EXPECT_EQ(ends, 0);
}

TEST_F(SessionEndTest, AfterItsEndNothingIsCalled) {
    {
        const SessionEnd sessionEnd([this] { ++saves; }, [this] { ++ends; });
    }
    alignas(QSessionManager) unsigned char manager[sizeof(QSessionManager)] = {};
    emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(saves + ends, 0);
}

} // namespace
} // namespace veltrano
