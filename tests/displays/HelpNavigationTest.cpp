// SPDX-License-Identifier: GPL-3.0-or-later
// The manual in its window: the way through it by keyboard, search, pictures and colours.
#include "displays/HelpPanel.h"
#include "platform/desktop/Appearance.h"
#include "tests/support/Contrast.h"
#include "tests/support/RecordingLog.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class ManualInItsWindowTest : public testing::Test {
protected:
    void SetUp() override {
        QLocale::setDefault(QLocale(QStringLiteral("en_US")));
        open();
    }
    void TearDown() override { QLocale::setDefault(QLocale::c()); }

    void open() {
        mPanel = std::make_unique<HelpPanel>(ResourceFolder::find(), mLog, [this] { ++mBeeps; });
        mPanel->showHelpPanel();
        ASSERT_TRUE(QTest::qWaitForWindowActive(mPanel->window()));
    }

    QWidget& window() { return *mPanel->window(); }
    QTextBrowser& text() { return *window().findChild<QTextBrowser*>("helpText"); }
    QLineEdit& field() { return *window().findChild<QLineEdit*>("findField"); }
    QString status() { return window().findChild<QLabel*>("findStatus")->text(); }
    QAbstractButton& button(const char* name) {
        return *window().findChild<QAbstractButton*>(name);
    }
    QString page() { return text().source().fileName(); }
    void show(const char* name) { text().setSource(text().source().resolved(QUrl(name))); }
    /// To whatever has the focus, as the desktop does it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window().windowHandle(), key, modifiers);
    }
    void type(const char* what) { QTest::keyClicks(QApplication::focusWidget(), what); }

    RecordingLog mLog;
    int mBeeps = 0;
    std::unique_ptr<HelpPanel> mPanel;
};

TEST_F(ManualInItsWindowTest, BeginsWithTheContentsAndTheFocusInTheText) {
    EXPECT_EQ(page(), "index.html");
    EXPECT_EQ(QApplication::focusWidget(), &text());
    EXPECT_EQ(window().windowTitle(), "Help");
    EXPECT_FALSE(button("backButton").isEnabled());
    EXPECT_FALSE(button("forwardButton").isEnabled());
    EXPECT_TRUE(mLog.lines.empty() && mLog.details.empty());
}

TEST_F(ManualInItsWindowTest, IsGermanForGermans) {
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    open();
    EXPECT_EQ(text().documentTitle(), "Hilfe zu Veltrano");
    EXPECT_TRUE(text().source().path().endsWith("/help/de/index.html"));
}

TEST_F(ManualInItsWindowTest, GoesFromLinkToLinkAndBackByTheKeyboard) {
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(page(), "first-tuning.html");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("First tuning in ten steps – Help"));
    EXPECT_TRUE(button("backButton").isEnabled());
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), "index.html");
    EXPECT_TRUE(button("forwardButton").isEnabled());
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page(), "first-tuning.html");
    press(Qt::Key_F1);
    EXPECT_EQ(page(), "index.html");
    button("backButton").click();
    EXPECT_EQ(page(), "first-tuning.html");
    button("contentsButton").click();
    EXPECT_EQ(page(), "index.html");
}

TEST_F(ManualInItsWindowTest, ArrowsScrollUntilThereIsACaret) {
    show("tuner.html");
    QApplication::processEvents();
    const int top = text().textCursor().position();
    press(Qt::Key_Down);
    EXPECT_GT(text().verticalScrollBar()->value(), 0);
    EXPECT_EQ(text().textCursor().position(), top);
    press(Qt::Key_F7);
    EXPECT_EQ(status(), "Caret on");
    press(Qt::Key_Down);
    EXPECT_GT(text().textCursor().position(), top);
    press(Qt::Key_F7);
    EXPECT_EQ(status(), "Caret off");
}

TEST_F(ManualInItsWindowTest, ALinkToAnAnchorScrollsThere) {
    window().resize(700, 300);
    show("preferences.html#devices");
    QApplication::processEvents();
    const int shown = text().cursorForPosition(QPoint(100, 200)).position();
    EXPECT_GT(text().verticalScrollBar()->value(), 0);
    EXPECT_GT(shown, text().toPlainText().indexOf("Waveform"));
}

TEST_F(ManualInItsWindowTest, FindsOnThisPageThenOnTheOthersThenOnceAround) {
    show("scope.html");
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), &field());
    type("persimmon");
    press(Qt::Key_Return);
    EXPECT_EQ(status(), "Not found");
    EXPECT_EQ(mBeeps, 1);
    EXPECT_EQ(page(), "scope.html");

    field().clear();
    type("pure tone");
    EXPECT_EQ(status(), "") << "typing takes the old answer away";
    press(Qt::Key_Return);
    EXPECT_EQ(page(), "scope.html");
    EXPECT_EQ(text().textCursor().selectedText(), "pure tone");
    press(Qt::Key_F3);
    EXPECT_EQ(status(), "From the other end");

    field().setText("unisons");
    press(Qt::Key_F3);
    EXPECT_EQ(page(), "first-tuning.html");
    EXPECT_EQ(status(), "On another page");
    EXPECT_EQ(text().textCursor().selectedText(), "unisons");
    field().setText("Goodbye"); // on no page
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(page(), "first-tuning.html");
    EXPECT_EQ(mBeeps, 2);
}

TEST_F(ManualInItsWindowTest, BackwardsTheSearchTakesThePageBefore) {
    show("scope.html");
    field().setText("overtones");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(page(), "partials.html");
    EXPECT_EQ(text().textCursor().selectedText(), "overtones");

    text().moveCursor(QTextCursor::Start);
    field().setText("deviation");
    press(Qt::Key_F3);
    const int first = text().textCursor().position();
    press(Qt::Key_F3);
    EXPECT_GT(text().textCursor().position(), first);
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(text().textCursor().position(), first);
    EXPECT_EQ(page(), "partials.html");
}

TEST_F(ManualInItsWindowTest, EscapeLeavesTheFieldThenTheWindow) {
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Escape);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &text());
    press(Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
    mPanel->showHelpPanel();
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(ManualInItsWindowTest, ItsKeysWorkBesideAMenuThatHasThemToo) {
    QAction help, close;
    help.setShortcut(Qt::Key_F1);
    close.setShortcut(QKeySequence::Close);
    window().addActions({&help, &close});
    show("keys.html");
    press(Qt::Key_F1);
    EXPECT_EQ(page(), "index.html");
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(ManualInItsWindowTest, EveryControlIsNamedReachableAndLargeEnough) {
    for (QWidget* widget : window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->parentWidget() == &text()) continue;
        if (widget->parentWidget() != &window()) continue; // a part of a control
        SCOPED_TRACE(widget->objectName().toStdString());
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(told, nullptr);
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty());
        EXPECT_TRUE(widget->focusPolicy() & Qt::TabFocus);
        EXPECT_GE(widget->height(), 24);
    }
}

TEST_F(ManualInItsWindowTest, PicturesFitIntoANarrowWindow) {
    show("partials.html");
    for (const int width : {860, 340, 700}) {
        window().resize(width, 600);
        QApplication::processEvents();
        EXPECT_EQ(text().horizontalScrollBar()->maximum(), 0) << width;
        const QUrl url = text().source().resolved(QUrl("../pictures/partials.png"));
        const auto image =
            text().document()->resource(QTextDocument::ImageResource, url).value<QImage>();
        EXPECT_GT(image.width() / image.devicePixelRatio(), width - 250) << width;
    }
}

TEST_F(ManualInItsWindowTest, DarkColorsHaveDarkPicturesAndLinksThatCanBeRead) {
    show("partials.html");
    const auto corner = [this] {
        const QUrl url = text().source().resolved(QUrl("../pictures/partials.png"));
        return text()
            .document()
            ->resource(QTextDocument::ImageResource, url)
            .value<QImage>()
            .pixel(1, 1);
    };
    EXPECT_GT(qGray(corner()), 200);
    QPalette dark = Appearance::palette(AppearanceChoice::dark);
    dark.setColor(QPalette::Link, QColor(0, 0, 255)); // as many a desktop leaves it
    window().setPalette(dark);
    QApplication::processEvents();
    EXPECT_LT(qGray(corner()), 60);
    QTextCursor link = text().document()->find("Contents");
    const QColor color = link.charFormat().foreground().color();
    EXPECT_GE(contrast(color, dark.color(QPalette::Base)), 4.5) << color.name().toStdString();
}

} // namespace
} // namespace veltrano
