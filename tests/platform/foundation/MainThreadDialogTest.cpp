// SPDX-License-Identifier: GPL-3.0-or-later
// The door to the main thread stays open while a menu tracks or a modal dialog runs.
#include "platform/foundation/MainThread.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>

namespace veltrano {
namespace {

class MainThreadDialogTest : public testing::Test {
protected:
    MainThreadDialogTest() : mApplication(mArgc, mArgv) {}

    /// Runs @p exec, which must be ended by a post of another thread through @p close.
    template <class Exec, class Close>
    static bool isEndedByAPost(MainThread& mainThread, Exec exec, Close close) {
        bool hasRun = false;
        std::thread poster;
        QTimer::singleShot(0, [&] {
            poster = std::thread([&] {
                mainThread.post([&] {
                    hasRun = true;
                    close();
                });
            });
        });
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, close);
        limit.start(3000);
        exec();
        if (poster.joinable()) poster.join();
        return hasRun;
    }

private:
    int mArgc = 1;
    char mName[5] = "test";
    char* mArgv[2] = {mName, nullptr};
    QApplication mApplication;
};

TEST_F(MainThreadDialogTest, ModalDialog) {
    MainThread mainThread;
    QDialog dialog;
    EXPECT_TRUE(isEndedByAPost(
        mainThread, [&] { dialog.exec(); }, [&] { dialog.reject(); }));
}

TEST_F(MainThreadDialogTest, TrackingMenu) {
    MainThread mainThread;
    QMenu menu;
    menu.addAction(QStringLiteral("Item"));
    EXPECT_TRUE(isEndedByAPost(
        mainThread, [&] { menu.exec(); }, [&] { menu.close(); }));
}

} // namespace
} // namespace veltrano
