// SPDX-License-Identifier: GPL-3.0-or-later
// An application for tests of widgets whose main function knows none.
#include <QApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {

/// Made when the locale of the run is set.
class ApplicationEnvironment final : public testing::Environment {
public:
    void SetUp() override { mApplication = std::make_unique<QApplication>(mCount, mArguments); }
    void TearDown() override { mApplication.reset(); }

private:
    char mName[6] = "tests";
    char* mArguments[2] = {mName, nullptr};
    int mCount = 1;
    std::unique_ptr<QApplication> mApplication;
};

const testing::Environment* const theEnvironment =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment); // owned by the framework

} // namespace
