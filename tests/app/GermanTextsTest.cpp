// SPDX-License-Identifier: GPL-3.0-or-later
// What Germans read: the program in German, the tuner's own texts as they are in English.
#include "app/Translations.h"
#include "platform/desktop/QtDocumentPanels.h"
#include "platform/desktop/SoundSettings.h"
#include "tests/app/TunerDesk.h"

#include <QComboBox>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;

constexpr char kResources[] = VELTRANO_SOURCE_RESOURCES;

class GermanTextsTest : public testing::Test {
protected:
    GermanTextsTest() { EXPECT_TRUE(installTranslations(QLocale(QStringLiteral("de_DE")))); }
    ~GermanTextsTest() override {
        qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
    }
    static std::string itemOf(const QWidget& panel, const char* popUp) {
        const auto* box = panel.findChild<QComboBox*>(QLatin1String(popUp));
        return box ? box->itemText(0).toStdString() : "no such pop-up button";
    }
    /// The texts of the buttons of the message box that @p ask shows, which is then refused.
    static QStringList buttonsOf(const std::function<void()>& ask, QString* text = nullptr) {
        QStringList buttons;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            for (const QAbstractButton* button : box->buttons())
                buttons.append(button->text().remove(u'&'));
            if (text) *text = box->text();
            box->reject();
        });
        watch.start(1);
        ask();
        return buttons;
    }
};

TEST_F(GermanTextsTest, TheProgramIsGerman) {
    TunerDesk desk;
    EXPECT_EQ(desk.windows->tuner().menuBar()->actions().at(0)->text(), "&Datei");
    EXPECT_EQ(desk.menu->action(MenuCommand::importScala)->text().remove(u'&'), "Importieren…");
    EXPECT_EQ(desk.window(AnalysisWindowKind::partials).windowTitle(), "Teiltöne");
    desk.windows->showPreferences();
    ASSERT_TRUE(desk.panel->window());
    EXPECT_EQ(desk.panel->window()->windowTitle(), "Einstellungen");
    desk.documents.perform(MenuCommand::newTemperament);
    ASSERT_EQ(desk.documents.windows().size(), 1u);
    EXPECT_EQ(desk.documents.windows()[0]->windowTitle(), "Unbenannt[*]");
}

TEST_F(GermanTextsTest, QuestionsAndMessagesAreGerman) {
    RecordingPanels panels;
    SoundSettings(panels, {.find = [](const QString&) { return QString(); }}).open();
    ASSERT_EQ(panels.alerts.size(), 1u);
    EXPECT_EQ(panels.asked[0], "alert: Die Klangeinstellungen konnten nicht geöffnet werden.");

    UserDefaults defaults = UserDefaults::inMemory();
    QtDocumentPanels real(defaults);
    QString text;
    buttonsOf([&] { real.askToSave("Young"); }, &text);
    EXPECT_EQ(text, "Möchten Sie die Änderungen an „Young“ speichern?");
}

TEST_F(GermanTextsTest, TheTextsOfTheTunerStayEnglish) {
    TunerDesk desk;
    const TunerWindow& tuner = desk.windows->tuner();
    EXPECT_EQ(tuner.text(TunerText::referencePitch), "A4 = 440.000Hz");
    EXPECT_EQ(tuner.text(TunerText::tuningName), "Equal Tempered");
    EXPECT_EQ(tuner.text(TunerText::stretchName), "None");
    desk.windows->showPreferences();
    ASSERT_TRUE(desk.panel->window());
    EXPECT_EQ(itemOf(*desk.panel->window(), "mTuningPopUpButton"), "Equal Tempered");
    EXPECT_EQ(itemOf(*desk.panel->window(), "mStretchPopUpButton"), "None");
}

TEST_F(GermanTextsTest, TheTitlesThatTellOfVisibleWindowsStayEnglish) {
    TunerDesk desk;
    const struct {
        MenuCommand command;
        const char *whenHidden, *whenVisible;
    } kCases[] = {
        {MenuCommand::showPartials, "Show Partials", "Hide Partials"},
        {MenuCommand::showHilbertScope, "Show Hilbert Scope", "Hide Hilbert Scope"},
    };
    for (const auto& c : kCases) {
        const bool isVisible = desk.look(c.command).title == c.whenVisible;
        EXPECT_EQ(desk.look(c.command).title, isVisible ? c.whenVisible : c.whenHidden);
        desk.commands.perform(c.command);
        EXPECT_EQ(desk.look(c.command).title, isVisible ? c.whenHidden : c.whenVisible);
    }
}

TEST_F(GermanTextsTest, TheTextsOfTheScalaScalesStayEnglish) {
    const QTemporaryDir folder;
    QFile broken(folder.filePath("broken.scl"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("of seven notes\n7\n");
    broken.close();
    TunerDesk desk;
    desk.panels.chosen = {broken.fileName().toStdString()};
    desk.documents.perform(MenuCommand::importScala);
    ASSERT_EQ(desk.panels.openPanels.size(), 1u);
    EXPECT_EQ(desk.panels.openPanels[0].title, "Import");
    EXPECT_EQ(desk.panels.openPanels[0].prompt, "Import");
    EXPECT_EQ(desk.panels.alerts,
              Lines{"Unable to import the Scala Scale File (.scl).\nVeltrano failed to import the "
                    "Scala Scale File (.scl): " +
                    desk.panels.chosen[0] + "."});

    desk.documents.perform(MenuCommand::newTemperament);
    ASSERT_EQ(desk.documents.windows().size(), 1u);
    desk.panels.savePaths = {"/no folder/at all.scl"};
    desk.documents.windows()[0]->perform(MenuCommand::exportScala);
    ASSERT_EQ(desk.panels.savePanels.size(), 1u);
    EXPECT_EQ(desk.panels.savePanels[0].title, "Export");
    EXPECT_EQ(desk.panels.savePanels[0].prompt, "Export");
    EXPECT_EQ(desk.panels.alerts.back(),
              "Unable to export Scala Scale File (.scl).\nVeltrano failed to export to a Scala "
              "Scale File (.scl) at /no folder/at all.scl.");

    UserDefaults defaults = UserDefaults::inMemory();
    QtDocumentPanels real(defaults);
    EXPECT_EQ(buttonsOf([&] { real.alert("title", "message"); }), QStringList{"OK"});
}

/// Everything that is to be translated, and whether it is.
class TranslationFile {
public:
    explicit TranslationFile(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        QXmlStreamReader xml(&file);
        QString context, source;
        while (!xml.atEnd()) {
            xml.readNext();
            if (!xml.isStartElement()) continue;
            if (xml.name() == u"name") context = xml.readElementText();
            if (xml.name() == u"source")
                source = context + QStringLiteral(": ") + xml.readElementText();
            if (xml.name() != u"translation") continue;
            const bool isFinished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            texts.insert(source);
            if (xml.readElementText(QXmlStreamReader::IncludeChildElements).isEmpty() ||
                !isFinished)
                unfinished.append(source);
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    }

    QSet<QString> texts; ///< "context: text"
    QStringList unfinished;
};

std::string linesOf(const QSet<QString>& texts) {
    return QStringList(texts.begin(), texts.end()).join(u'\n').toStdString();
}

TEST(TranslationFileTest, EveryTextIsTranslated) {
    const TranslationFile german(QString(kResources) + "/translations/veltrano_de.ts");
    EXPECT_GT(german.texts.size(), 200);
    EXPECT_EQ(german.unfinished.join(u'\n').toStdString(), "");
}

TEST(TranslationFileTest, NoTextOfTheSourcesIsMissingAndNoneIsTooMany) {
    const auto isThere = [](const char* program) {
        return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
    };
    if (!isThere("lupdate6") && !isThere("/usr/lib/qt6/bin/lupdate") && !isThere("lupdate"))
        GTEST_SKIP() << "lupdate is not installed";
    const QTemporaryDir folder;
    const QString written = folder.filePath("veltrano_de.ts");
    QProcess update;
    update.start(QString(kResources) + "/translations/update", {written});
    ASSERT_TRUE(update.waitForFinished());
    ASSERT_EQ(update.exitCode(), 0) << update.readAllStandardError().toStdString();
    const QSet<QString> inFile =
        TranslationFile(QString(kResources) + "/translations/veltrano_de.ts").texts;
    const QSet<QString> inSources = TranslationFile(written).texts;
    EXPECT_EQ(linesOf(inSources - inFile), "") << "run resources/translations/update";
    EXPECT_EQ(linesOf(inFile - inSources), "") << "run resources/translations/update";
}

} // namespace
} // namespace veltrano
