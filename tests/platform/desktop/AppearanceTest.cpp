// SPDX-License-Identifier: GPL-3.0-or-later
// Light and dark, and what can be read in them.
#include "platform/desktop/Appearance.h"

#include "tests/support/Contrast.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class AppearanceTest : public testing::Test {
protected:
    ~AppearanceTest() override { Appearance::choose(AppearanceChoice::light); }
};

TEST_F(AppearanceTest, IsDecidedByTheLightnessOfTheWindowColour) {
    const struct {
        const char* name;
        QColor window;
        bool dark;
    } kCases[] = {
        {"white", Qt::white, false},
        {"black", Qt::black, true},
        {"just light", QColor(128, 128, 128), false},
        {"just dark", QColor(127, 127, 127), true},
        {"deep blue", QColor(0, 0, 120), true},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        QPalette palette;
        palette.setColor(QPalette::Window, c.window);
        EXPECT_EQ(Appearance::isDark(palette), c.dark);
        QApplication::setPalette(palette); // as a desktop would
        EXPECT_EQ(Appearance::isDark(), c.dark);
    }
}

TEST_F(AppearanceTest, ADesktopThatWantsItIsFollowed) {
    Appearance::chooseLike(AppearanceChoice::system);
    const bool isDesktopDark = Appearance::isDark();
    const QColor desktops = QGuiApplication::palette().color(QPalette::Window);
    Appearance::chooseLike(AppearanceChoice::dark);
    EXPECT_TRUE(Appearance::isDark());
    Appearance::chooseLike(AppearanceChoice::light);
    EXPECT_FALSE(Appearance::isDark());
    // What the desktop's palette has already is left to it.
    Appearance::chooseLike(isDesktopDark ? AppearanceChoice::dark : AppearanceChoice::light);
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::Window), desktops);
    Appearance::chooseLike(isDesktopDark ? AppearanceChoice::light : AppearanceChoice::dark);
    Appearance::chooseLike(AppearanceChoice::system);
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::Window), desktops);
}

TEST_F(AppearanceTest, ChoiceReachesWidgetsThatExist) {
    struct Widget : QWidget {
        void changeEvent(QEvent* event) override {
            if (event->type() == QEvent::PaletteChange) ++changes;
            QWidget::changeEvent(event);
        }
        int changes = 0;
    } widget;
    widget.ensurePolished();
    Appearance::choose(AppearanceChoice::dark);
    EXPECT_TRUE(Appearance::isDark());
    QCoreApplication::processEvents(); // which is when widgets hear of it
    EXPECT_TRUE(Appearance::isDark(widget.palette()));
    EXPECT_EQ(widget.changes, 1);
    Appearance::choose(AppearanceChoice::light);
    EXPECT_FALSE(Appearance::isDark());
    QCoreApplication::processEvents();
    EXPECT_EQ(widget.changes, 2);
}

TEST_F(AppearanceTest, SystemGivesTheDesktopsPaletteBack) {
    Appearance::choose(AppearanceChoice::system);
    const QPalette desktops = QApplication::palette();
    Appearance::choose(AppearanceChoice::dark);
    ASSERT_NE(QApplication::palette().color(QPalette::Window), desktops.color(QPalette::Window));
    Appearance::choose(AppearanceChoice::system);
    EXPECT_EQ(QApplication::palette(), desktops);
}

TEST_F(AppearanceTest, ChoicesByName) {
    EXPECT_EQ(Appearance::choiceNamed(u"light"), AppearanceChoice::light);
    EXPECT_EQ(Appearance::choiceNamed(u"dark"), AppearanceChoice::dark);
    EXPECT_EQ(Appearance::choiceNamed(u"system"), AppearanceChoice::system);
    for (const char16_t* wrong : {u"", u"Dark", u"black", u"light "}) {
        EXPECT_EQ(Appearance::choiceNamed(wrong), std::nullopt);
    }
}

TEST_F(AppearanceTest, TextsCanBeRead) {
    for (const auto choice : {AppearanceChoice::light, AppearanceChoice::dark}) {
        SCOPED_TRACE(choice == AppearanceChoice::dark ? "dark" : "light");
        const QPalette palette = Appearance::palette(choice);
        for (const auto background : {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
            const QColor under = palette.color(background);
            EXPECT_GE(contrast(palette.color(QPalette::WindowText), under), 11);
            EXPECT_GE(contrast(palette.color(QPalette::Text), under), 11);
            EXPECT_GE(contrast(Appearance::captionColor(palette), under), 4.5);
            EXPECT_GE(contrast(palette.color(QPalette::Link), under), 4.5);
        }
        EXPECT_GE(
            contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
            4.2);
        EXPECT_GE(contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)),
                  7);
    }
}

} // namespace
} // namespace veltrano
