// SPDX-License-Identifier: GPL-3.0-or-later
// Loading interface files.
#include "platform/desktop/InterfaceFile.h"

#include "tests/support/Pictures.h"

#include <QCoreApplication>
#include <QLabel>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

QStringList gMessages;
void keepMessage(QtMsgType, const QMessageLogContext&, const QString& text) { gMessages += text; }

struct Special : QWidget {
    using QWidget::QWidget;
};

class InterfaceFileTest : public testing::Test {
protected:
    InterfaceFileTest() {
        gMessages.clear();
        mPrevious = qInstallMessageHandler(keepMessage);
    }
    ~InterfaceFileTest() override { qInstallMessageHandler(mPrevious); }

    std::unique_ptr<QWidget> load(const WidgetMakers& makers = {}) {
        mError.clear();
        return loadInterfaceFile(mFolder.path() + "/F.ui", makers, &mError);
    }

    ArtworkFolder mFolder;
    QString mError;
    QtMessageHandler mPrevious;
};

TEST_F(InterfaceFileTest, MakesOurOwnWidgetsByClassName) {
    mFolder.write("F.ui", R"(<ui version="4.0"><class>F</class><widget class="QWidget" name="F">
        <widget class="Special" name="one"/><widget class="QLabel" name="two"/></widget></ui>)");
    const WidgetMakers makers{{"Special", [](QWidget* parent) { return new Special(parent); }}};
    const auto widget = load(makers);
    ASSERT_TRUE(widget);
    EXPECT_NE(dynamic_cast<Special*>(widget->findChild<QWidget*>("one")), nullptr);
    EXPECT_NE(widget->findChild<QLabel*>("two"), nullptr);
    EXPECT_EQ(mError, "");
}

TEST_F(InterfaceFileTest, FailuresAreNullAndOneError) {
    const struct {
        const char* name;
        const char* contents;
        const char* cause;
    } kCases[] = {
        {"missing", nullptr, "No such file or directory"},
        {"empty", "", "Premature end of document"},
        {"another document", "<svg/>", "root element <ui> is missing"},
        {"cut off", "<ui version=\"4.0\"><widget cl", "Premature end of document"},
        {"no widget", "<ui version=\"4.0\"></ui>", ""},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        if (c.contents != nullptr) mFolder.write("F.ui", c.contents);
        EXPECT_EQ(load(), nullptr);
        EXPECT_TRUE(mError.startsWith(mFolder.path() + "/F.ui: ")) << mError.toStdString();
        EXPECT_TRUE(mError.contains(c.cause)) << mError.toStdString();
        EXPECT_FALSE(mError.contains('\n'));
        EXPECT_TRUE(gMessages.isEmpty()) << gMessages.join("\n").toStdString();
    }
}

TEST_F(InterfaceFileTest, WarningsOfAFileThatLoadsAreHeard) {
    mFolder.write("F.ui", R"(<ui version="4.0"><class>F</class><widget class="QWidget" name="F">
        <widget class="Unknown" name="one"/></widget></ui>)");
    EXPECT_TRUE(load());
    EXPECT_FALSE(gMessages.isEmpty());
}

TEST_F(InterfaceFileTest, PlugInsStayAvailableToTheRest) {
    const QStringList before = QCoreApplication::libraryPaths();
    mFolder.write("F.ui", "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"F\"/></ui>");
    EXPECT_TRUE(load());
    EXPECT_EQ(QCoreApplication::libraryPaths(), before);
    EXPECT_FALSE(before.isEmpty());
}

} // namespace
} // namespace veltrano
