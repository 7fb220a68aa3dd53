// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner window as its callers see it.
#include "app/TunerWindow.h"

#include "app/ProportionalStage.h"
#include "displays/AutoResizeTextField.h"
#include "displays/DotView.h"
#include "displays/StrobeView.h"
#include "displays/TuningMeterView.h"
#include "tests/support/Pictures.h"
#include "tests/support/RecordingLog.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr char kResources[] = VELTRANO_SOURCE_RESOURCES;

constexpr TunerText textAt(int index) { return static_cast<TunerText>(index); }
constexpr TunerLight lightAt(int index) { return static_cast<TunerLight>(index); }

class TunerWindowTest : public testing::Test {
protected:
    void SetUp() override {
        mWindow = TunerWindow::create(mResources, mImages, mLog);
        ASSERT_TRUE(mWindow);
        ASSERT_TRUE(mLog.lines.empty());
    }

    ResourceFolder mResources{kResources};
    RecordingLog mLog;
    ImageLibrary mImages{mResources.images(), mLog};
    std::unique_ptr<TunerWindow> mWindow;
};

TEST_F(TunerWindowTest, EveryTextComesBackAsItWasSet) {
    for (const std::string text : {"+12.3", "\u266d", "", " ", "\u00b10.000",
                                   "Gr\u00f6\u00dfer : <b>\u97f3</b> & more", "--.-"}) {
        for (int i = 0; i < kTunerTexts; ++i) {
            mWindow->setText(textAt(i), text);
            EXPECT_EQ(mWindow->text(textAt(i)), text) << i;
        }
    }
    for (int i = 0; i < kTunerTexts; ++i)
        mWindow->setText(textAt(i), std::to_string(i));
    for (int i = 0; i < kTunerTexts; ++i)
        EXPECT_EQ(mWindow->text(textAt(i)), std::to_string(i));
}

TEST_F(TunerWindowTest, EveryFieldHidesAndTakesATip) {
    for (int i = 0; i < kTunerTexts; ++i) {
        SCOPED_TRACE(i);
        const AutoResizeTextField& field = mWindow->outlets().text(textAt(i));
        mWindow->setHidden(textAt(i), true);
        EXPECT_TRUE(field.isHidden());
        mWindow->setHidden(textAt(i), false);
        EXPECT_FALSE(field.isHidden());
        mWindow->setTip(textAt(i), "tip \u266f");
        EXPECT_EQ(field.tip(), QString::fromUtf8("tip \u266f"));
        mWindow->setTip(textAt(i), "");
        EXPECT_EQ(field.tip(), "");
    }
}

TEST_F(TunerWindowTest, OutletsAreTheNamedViews) {
    const struct {
        TunerText field;
        const char* name;
    } kTexts[] = {
        {TunerText::inputDevice, "mInputDeviceText"},
        {TunerText::frequency, "mFrequencyText"},
        {TunerText::note, "mNoteText"},
        {TunerText::level, "mLevelText"},
        {TunerText::referencePitch, "mReferencePitchText"},
        {TunerText::accidental, "mAccidentalText"},
        {TunerText::octave, "mOctaveText"},
        {TunerText::cent, "mCentText"},
        {TunerText::frequencyDiff, "mFrequencyDiffText"},
        {TunerText::idealFrequency, "mIdealFrequencyText"},
        {TunerText::stretchOffset, "mStretchOffsetText"},
        {TunerText::tuningName, "mTuningName"},
        {TunerText::stretchName, "mStretchName"},
    };
    static_assert(std::size(kTexts) == kTunerTexts);
    for (const auto& c : kTexts)
        EXPECT_EQ(mWindow->outlets().text(c.field).objectName(), c.name);

    for (int i = 0; i < kLevelLights; ++i) {
        const DotView& light = mWindow->outlets().light(levelLight(i));
        EXPECT_EQ(light.objectName(), QStringLiteral("mLevel%1").arg(i));
        EXPECT_NE(dynamic_cast<const LevelDotView*>(&light), nullptr);
    }
    const TunerOutlets& outlets = mWindow->outlets();
    EXPECT_EQ(outlets.light(TunerLight::flat).objectName(), "mFlatDot");
    EXPECT_EQ(outlets.light(TunerLight::sharp).objectName(), "mSharpDot");
    EXPECT_EQ(outlets.light(TunerLight::inTune).objectName(), "mInTuneDot");
    EXPECT_NE(dynamic_cast<InTuneDotView*>(&outlets.light(TunerLight::inTune)), nullptr);
}

TEST_F(TunerWindowTest, LightsShowTheNamedImages) {
    const struct {
        LightImage image;
        const char* name;
    } kImages[] = {
        {LightImage::gray16x16, "gray16x16"},     {LightImage::green16x16, "green16x16"},
        {LightImage::yellow16x16, "yellow16x16"}, {LightImage::red16x16, "red16x16"},
        {LightImage::gray28x28, "gray28x28"},     {LightImage::green28x28, "green28x28"},
        {LightImage::blue28x28, "blue28x28"},     {LightImage::gray24x24, "gray24x24"},
        {LightImage::red24x24, "red24x24"},
    };
    static_assert(std::size(kImages) == kLightImages);
    for (int i = 0; i < kTunerLights; ++i) {
        for (const auto& c : kImages) {
            mWindow->setLight(lightAt(i), c.image);
            EXPECT_EQ(mWindow->outlets().light(lightAt(i)).image(), mImages.imageNamed(c.name));
        }
    }
}

TEST_F(TunerWindowTest, ReducedMotionRestsTheStrobeAndTheScopeAndNothingElse) {
    std::vector<std::string> sent;
    mWindow->setNeighbours(
        {.scopePeak = [&](float peak) { sent.push_back("peak " + std::to_string(peak)); },
         .scopeData = [&](const FrameRef& data) { sent.emplace_back(data ? "data" : "no data"); },
         .pianoNote = [&](int key) { sent.push_back("key " + std::to_string(key)); }});
    const std::vector<float> samples(100, 0.5f);
    const Frame frame{samples, samples.size()};
    const auto show = [&](float level) {
        mWindow->setStrobeData(FrameRef(FrameRef(), &frame));
        mWindow->setStrobePeak(level);
        mWindow->setScopePeak(level);
        mWindow->setScopeData(FrameRef(FrameRef(), &frame));
        mWindow->setPianoNote(int(100 * level));
        mWindow->setMeterCent(100 * level);
        mWindow->setText(textAt(0), std::to_string(level));
        return std::exchange(sent, {});
    };
    const StrobeView& strobe = *mWindow->outlets().strobe;
    const TuningMeterView& meter = *mWindow->outlets().meter;
    mWindow->setMeterEnabled(true);
    EXPECT_EQ(show(0.25f), (std::vector<std::string>{"peak 0.250000", "data", "key 25"}));

    mWindow->setReducesMotion(true);
    EXPECT_EQ(std::exchange(sent, {}), std::vector<std::string>{"no data"});
    EXPECT_EQ(strobe.accessibleValue(), "no signal") << "no picture of a moment stays";
    const QString before = meter.accessibleValue();
    EXPECT_EQ(show(0.125f), std::vector<std::string>{"key 12"});
    EXPECT_EQ(strobe.accessibleValue(), "no signal");
    EXPECT_EQ(strobe.peak(), 0.25f);
    EXPECT_NE(meter.accessibleValue(), before);
    EXPECT_EQ(mWindow->text(textAt(0)), std::to_string(0.125f));

    mWindow->setReducesMotion(false);
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(show(0.25f).size(), 3u);
    EXPECT_EQ(strobe.accessibleValue(), "signal");
}

TEST_F(TunerWindowTest, MeterAndStrobeGetWhatTheyAreSent) {
    const TuningMeterView& meter = *mWindow->outlets().meter;
    EXPECT_EQ(meter.accessibleValue(), "off");
    mWindow->setMeterEnabled(true);
    mWindow->setMeterCent(-7.5f);
    EXPECT_EQ(meter.accessibleValue(), "-7.5 cents");

    const float samples[] = {1, 2, 3};
    const Frame frame{samples, 3};
    mWindow->setStrobeData(FrameRef(FrameRef(), &frame));
    EXPECT_EQ(mWindow->outlets().strobe->accessibleValue(), "signal");
    mWindow->setStrobePeak(0.25f);
    EXPECT_EQ(mWindow->outlets().strobe->peak(), 0.25f);
    mWindow->setStrobeData(nullptr);
    EXPECT_EQ(mWindow->outlets().strobe->accessibleValue(), "no signal");
}

TEST_F(TunerWindowTest, NeighboursGetTheirCallsIfThereAreAny) {
    const float silence[] = {0};
    const Frame frame{silence, 1};
    const FrameRef reference(FrameRef(), &frame);
    mWindow->setScopePeak(1); // nobody is there
    mWindow->setScopeData(reference);
    mWindow->setPianoNote(57);

    std::string calls;
    mWindow->setNeighbours({
        .scopePeak = [&](float amplitude) { calls += amplitude == 0.5f ? "peak " : "?"; },
        .scopeData = [&](FrameRef data) { calls += data == reference ? "data " : "?"; },
        .pianoNote = [&](int key) { calls += std::to_string(key) + ' '; },
    });
    mWindow->setScopePeak(0.5f);
    mWindow->setScopeData(reference);
    mWindow->setPianoNote(57);
    mWindow->setPianoNote(-1);
    EXPECT_EQ(calls, "peak data 57 -1 ");
}

TEST_F(TunerWindowTest, EveryReadoutHasANameAndSaysItsValue) {
    QStringList names;
    const auto seen = [&names](QWidget& widget) {
        names += widget.accessibleName();
        EXPECT_FALSE(widget.accessibleName().isEmpty()) << widget.objectName().toStdString();
        return QAccessible::queryAccessibleInterface(&widget);
    };
    for (int i = 0; i < kTunerTexts; ++i) {
        AutoResizeTextField& field = mWindow->outlets().text(textAt(i));
        mWindow->setText(textAt(i), "12");
        EXPECT_EQ(seen(field)->text(QAccessible::Name), field.accessibleName() + ": 12");
    }
    for (int i = 0; i < kTunerLights; ++i) {
        DotView& light = mWindow->outlets().light(lightAt(i));
        mWindow->setLight(lightAt(i), LightImage::green16x16);
        EXPECT_EQ(seen(light)->text(QAccessible::Value),
                  lightAt(i) == TunerLight::inTune ? "yes" : "on");
        mWindow->setLight(lightAt(i), LightImage::gray16x16);
        EXPECT_EQ(light.accessibleValue(), "off");
    }
    EXPECT_EQ(seen(*mWindow->outlets().meter)->role(), QAccessible::Dial);
    EXPECT_EQ(seen(*mWindow->outlets().strobe)->role(), QAccessible::Graphic);
    names.sort();
    EXPECT_EQ(names.removeDuplicates(), 0) << "every name is its own";
}

TEST_F(TunerWindowTest, PanesCanHaveTheFocusAndSayWhatTheyHold) {
    mWindow->show();
    mWindow->activateWindow();
    QApplication::processEvents();
    mWindow->setText(TunerText::note, "B");
    mWindow->setText(TunerText::accidental, "\u266d");
    mWindow->setText(TunerText::octave, "3");
    mWindow->setText(TunerText::cent, "+02.6");
    mWindow->setText(TunerText::frequency, "233.400");
    mWindow->setText(TunerText::tuningName, "Vallotti");
    mWindow->setLight(TunerLight::sharp, LightImage::red24x24);
    mWindow->setLight(TunerLight::inTune, LightImage::blue28x28);
    mWindow->setLight(levelLight(0), LightImage::green16x16);
    mWindow->setLight(levelLight(4), LightImage::yellow16x16);
    mWindow->setText(TunerText::level, "-20dB");
    const std::pair<const char*, const char*> kPanes[] = {
        {"noteBox", "Key: B flat 3"},
        {"mCentText", "Cents: +02.6"},
        {"mStrobeView", "Strobe: no signal"},
        {"lightsBox", "Lights: In tune: no, Sharp: on"},
        {"mTuningMeterView", "Deviation: off"},
        {"readoutBox0", "Frequency: 233.400 Hz"},
        {"readoutBox1", "Target: Hz"},
        {"readoutBox2", "Difference: Hz"},
        {"readoutBox3", "Stretch offset: cents"},
        {"tuningBox", "Tuning: Temperament: Vallotti"},
        {"inputBox", "Input"},
        {"levelBox", "Level: 2 of 8 lights -20dB"},
    };
    QWidget* at = mWindow->findChild<QWidget*>("noteBox");
    for (const auto& [name, says] : kPanes) {
        EXPECT_EQ(at->objectName(), name) << "in the order of the focus";
        EXPECT_EQ(QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name), says);
        at->clearFocus(); // the first one has it, but not by a key
        at->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(at->grab().toImage().pixelColor(0, at->height() / 2),
                  at->palette().color(QPalette::Highlight))
            << "the focus is seen";
        do {
            at = at->nextInFocusChain();
        } while (at->focusPolicy() == Qt::NoFocus);
    }
}

TEST_F(TunerWindowTest, LongNamesAreElidedAndWholeInTheToolTip) {
    const std::string device = "Scarlett 18i20 USB (3rd Gen.) Multichannel : Front Microphone "
                               "1+2 with phantom power, left and right";
    mWindow->setText(TunerText::inputDevice, device);
    const AutoResizeTextField& field = mWindow->outlets().text(TunerText::inputDevice);
    EXPECT_NE(field.shownText(), field.text());
    EXPECT_TRUE(field.shownText().startsWith("Scarlett"));
    EXPECT_TRUE(field.shownText().endsWith("right")) << "the end tells devices apart";
    EXPECT_EQ(field.toolTip(), QString::fromStdString(device));
    EXPECT_EQ(mWindow->text(TunerText::inputDevice), device) << "speech reads it whole";

    mWindow->setTip(TunerText::tuningName, "the description");
    mWindow->setText(TunerText::tuningName, device);
    EXPECT_EQ(mWindow->outlets().text(TunerText::tuningName).toolTip(),
              QString::fromStdString(device) + "\nthe description");
    mWindow->setText(TunerText::tuningName, "Equal Temperament");
    EXPECT_EQ(mWindow->outlets().text(TunerText::tuningName).toolTip(), "the description");
}

TEST_F(TunerWindowTest, ScalesAsAWhole) {
    const Extent minimum = mWindow->stage().minimum();
    for (const double factor : {1.0, 1.5, 2.0, 3.0}) {
        mWindow->setScale(factor);
        pictureOf(*mWindow); // lays out
        EXPECT_EQ(mWindow->stage().size(),
                  (QSizeF(minimum.width, minimum.height) * factor).toSize());
        const QSize strobe = mWindow->outlets().strobe->size();
        EXPECT_EQ(strobe, (QSizeF(404, 48) * factor).toSize());
    }
    mWindow->setScale(0.3);
    pictureOf(*mWindow);
    EXPECT_EQ(mWindow->stage().width(), minimum.width);
}

// What may go wrong with the interface file.

TEST(TunerWindowCreation, WithoutAGoodInterfaceFileThereIsNoWindowAndOneLine) {
    QFile original(QString(kResources) + "/TunerWindow.ui");
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray good = original.readAll();
    const auto with = [&good](const char* before, const char* after) {
        QByteArray changed = good;
        return changed.replace(before, after);
    };
    const struct {
        const char* name;
        QByteArray contents; // null: no file
        const char* cause;
    } kCases[] = {
        {"missing", {}, "No such file or directory"},
        {"empty", "", "end of document"},
        {"cut off", good.left(good.size() / 2), "end of document"},
        {"a field is missing", with("\"mCentText\"", "\"centText\""), "no view named mCentText"},
        {"a light is missing", with("\"mLevel3\"", "\"\""), "no view named mLevel3"},
        {"no meter", with("\"mTuningMeterView\"", "\"m\""), "no view named mTuningMeterView"},
        {"no strobe", with("\"mStrobeView\"", "\"m\""), "no view named mStrobeView"},
        {"a field of another class",
         with("AutoResizeTextField\" name=\"mNoteText", "QWidget\" name=\"mNoteText"),
         "no view named mNoteText"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        ArtworkFolder folder;
        if (!c.contents.isNull()) folder.write("TunerWindow.ui", c.contents);
        RecordingLog log;
        ImageLibrary images(folder.path(), log);
        EXPECT_EQ(TunerWindow::create(ResourceFolder(folder.path()), images, log), nullptr);
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_TRUE(log.lines[0].starts_with("Failed to load the tuner window: "));
        EXPECT_NE(log.lines[0].find(c.cause), std::string::npos) << log.lines[0];
        EXPECT_EQ(log.lines[0].find('\n'), std::string::npos);
    }
}

TEST(TunerWindowCreation, WithoutArtworkThereIsAWindowAllTheSame) {
    ArtworkFolder empty;
    RecordingLog log;
    ImageLibrary images(empty.path(), log);
    const auto window = TunerWindow::create(ResourceFolder(kResources), images, log);
    ASSERT_TRUE(window);
    window->setLight(TunerLight::flat, LightImage::red24x24);
    window->setMeterEnabled(true);
    pictureOf(*window);
    EXPECT_FALSE(log.details.empty());
}

} // namespace
} // namespace veltrano
