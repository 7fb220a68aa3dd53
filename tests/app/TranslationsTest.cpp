// SPDX-License-Identifier: GPL-3.0-or-later
// German: every menu item has its words, and letters under Alt that do not clash.
#include "app/Translations.h"

#include "app/ApplicationMenu.h"
#include "app/MenuItems.h"
#include "platform/desktop/InterfaceFile.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMenuBar>
#include <QSet>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTranslator>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace veltrano {
namespace {

/// The letters of @p texts behind a single "&"; "&&" is an ampersand.
QString mnemonicsOf(const QStringList& texts) {
    QString letters;
    for (QString text : texts) {
        text.remove(QStringLiteral("&&"));
        const auto at = text.indexOf(u'&');
        if (at >= 0) letters.append(text.at(at + 1).toLower());
    }
    return letters;
}

bool areDifferent(const QString& letters) {
    return QSet<QChar>(letters.begin(), letters.end()).size() == letters.size();
}

QStringList textsOf(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions) {
        if (!action->isSeparator()) texts.append(action->text());
    }
    return texts;
}

/// The labels and buttons of a page or window.
QStringList textsIn(const QWidget& page) {
    QStringList texts;
    for (const QLabel* label : page.findChildren<QLabel*>())
        texts.append(label->text());
    for (const QAbstractButton* button : page.findChildren<QAbstractButton*>())
        texts.append(button->text());
    return texts;
}

class TranslationsTest : public testing::TestWithParam<const char*> {
protected:
    TranslationsTest() { mIsTranslated = installTranslations(QLocale(QString(GetParam()))); }
    ~TranslationsTest() override {
        qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
    }
    static bool isGerman() { return QByteArray(GetParam()).startsWith("de"); }
    static bool isInFile(const char* text) {
        const auto translators = QCoreApplication::instance()->findChildren<QTranslator*>();
        return std::ranges::any_of(translators, [text](const QTranslator* translator) {
            return !translator->translate("Menu", text).isEmpty();
        });
    }
    static std::unique_ptr<QWidget> load(const char* name) {
        static const WidgetMakers kMakers{
            {"NumberField", [](QWidget* parent) { return new QDoubleSpinBox(parent); }},
            {"HelpText", [](QWidget* parent) { return new QTextBrowser(parent); }},
            {"TemperamentTableView", [](QWidget* parent) { return new QWidget(parent); }},
            {"TemperamentGraphView", [](QWidget* parent) { return new QWidget(parent); }},
            {"StretchTableView", [](QWidget* parent) { return new QWidget(parent); }},
            {"StretchGraphView", [](QWidget* parent) { return new QWidget(parent); }}};
        QString error;
        auto widget = loadInterfaceFile(
            QStringLiteral(VELTRANO_SOURCE_RESOURCES "/%1.ui").arg(QString(name)), kMakers, &error);
        EXPECT_TRUE(widget) << error.toStdString();
        return widget;
    }

    bool mIsTranslated = false;
};

TEST_P(TranslationsTest, TheLanguageIsThere) { EXPECT_EQ(mIsTranslated, isGerman()); }

TEST_P(TranslationsTest, EveryMenuItemHasItsWordsInTheFile) {
    for (const MenuTable& table : menuTables()) {
        EXPECT_EQ(isInFile(table.title), isGerman()) << table.title;
        for (const MenuItem& item : table.items) {
            if (!item.text) continue;
            EXPECT_EQ(isInFile(item.text), isGerman()) << item.text;
            const QString shown = QCoreApplication::translate("Menu", item.text);
            EXPECT_EQ(shown.endsWith(u'…'), QString(item.text).endsWith(u'…')) << item.text;
        }
    }
}

TEST_P(TranslationsTest, TheMenuTitlesThatChangeStayEnglish) {
    for (const char* text : {"Show &Partials", "Show &Hilbert Scope"})
        EXPECT_EQ(QCoreApplication::translate("Menu", text), text);
}

TEST_P(TranslationsTest, EveryMenuItemHasAMnemonicOfItsOwn) {
    QMainWindow window;
    new ApplicationMenu(window, {}, {}); // owned by the window
    const QStringList titles = textsOf(window.menuBar()->actions());
    EXPECT_EQ(mnemonicsOf(titles).size(), titles.size());
    EXPECT_TRUE(areDifferent(mnemonicsOf(titles)));
    for (const QAction* title : window.menuBar()->actions()) {
        const QStringList items = textsOf(title->menu()->actions());
        EXPECT_EQ(mnemonicsOf(items).size(), items.size()) << title->text().toStdString();
        EXPECT_TRUE(areDifferent(mnemonicsOf(items)))
            << title->text().toStdString() << ": " << mnemonicsOf(items).toStdString();
    }
}

TEST_P(TranslationsTest, TheMnemonicsOfATabDifferFromItsTabsToo) {
    const auto panel = load("VeltranoPrefs");
    ASSERT_TRUE(panel);
    auto* tabs = panel->findChild<QTabWidget*>();
    ASSERT_TRUE(tabs);
    QStringList titles;
    for (int at = 0; at < tabs->count(); ++at)
        titles.append(tabs->tabText(at));
    EXPECT_EQ(mnemonicsOf(titles).size(), tabs->count());
    for (int at = 0; at < tabs->count(); ++at) {
        const QString letters = mnemonicsOf(titles + textsIn(*tabs->widget(at)));
        EXPECT_GT(letters.size(), tabs->count() + 2);
        EXPECT_TRUE(areDifferent(letters))
            << titles[at].toStdString() << ": " << letters.toStdString();
    }
}

TEST_P(TranslationsTest, TheMnemonicsOfAnEditorDifferFromItsMenuBarToo) {
    QMainWindow window;
    new ApplicationMenu(window, {}, {}); // owned by the window
    const QStringList bar = textsOf(window.menuBar()->actions());
    for (const char* name : {"TemperamentDocument", "StretchDocument"}) {
        const auto contents = load(name);
        ASSERT_TRUE(contents);
        const QString letters = mnemonicsOf(bar + textsIn(*contents));
        EXPECT_EQ(letters.size(), bar.size() + 2) << "the name and the description";
        EXPECT_TRUE(areDifferent(letters)) << name << ": " << letters.toStdString();
    }
}

TEST_P(TranslationsTest, TheMnemonicsOfTheHelpWindowDiffer) {
    const auto window = load("Help");
    ASSERT_TRUE(window);
    const QString letters = mnemonicsOf(textsIn(*window));
    EXPECT_EQ(letters.size(), 4);
    EXPECT_TRUE(areDifferent(letters)) << letters.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationsTest, testing::Values("en_GB", "de_DE", "de_AT"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace veltrano
