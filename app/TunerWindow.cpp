// SPDX-License-Identifier: GPL-3.0-or-later
// The tuner window.
#include "app/TunerWindow.h"

#include "app/ProportionalStage.h"
#include "displays/AutoResizeTextField.h"
#include "displays/DisplayWidgets.h"
#include "displays/DotView.h"
#include "displays/StrobeView.h"
#include "displays/TuningMeterView.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/InterfaceFile.h"

#include <QCloseEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

// In the order of LightImage.
constexpr std::array<const char*, kLightImages> kLightImageNames{
    "gray16x16",  "green16x16", "yellow16x16", "red16x16", "gray28x28",
    "green28x28", "blue28x28",  "gray24x24",   "red24x24"};

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The largest step at which the window leaves room around it.
double firstScale(Extent minimum, const QScreen* screen) {
    constexpr double kSteps[] = {2.0, 1.5, 1.25};
    constexpr double kShareOfScreen = 0.6;
    if (screen == nullptr) return 1;
    const QSizeF room = QSizeF(screen->availableSize()) * kShareOfScreen;
    for (const double step : kSteps) {
        if (minimum.width * step <= room.width() && minimum.height * step <= room.height()) {
            return step;
        }
    }
    return 1;
}

} // namespace

std::unique_ptr<TunerWindow> TunerWindow::create(const ResourceFolder& resources,
                                                 ImageLibrary& images, Log& log,
                                                 std::unique_ptr<OneShotTimer> settleTimer) {
    const QString path = resources.interfaceFile(QStringLiteral("TunerWindow"));
    QString error;
    auto contents = loadInterfaceFile(path, displayWidgets(images), &error);
    TunerOutlets outlets;
    if (contents && !outlets.connect(*contents, &error)) {
        error = path + QStringLiteral(": no view named ") + error;
        contents.reset();
    }
    if (!contents) {
        log.line("Failed to load the tuner window: " + error.toStdString());
        return nullptr;
    }
    AccessibleReadout::install();
    return std::unique_ptr<TunerWindow>(
        new TunerWindow(std::move(contents), outlets, images, std::move(settleTimer)));
}

TunerWindow::TunerWindow(std::unique_ptr<QWidget> contents, const TunerOutlets& outlets,
                         ImageLibrary& images, std::unique_ptr<OneShotTimer> settleTimer)
    : mStage(nullptr), mOutlets(outlets) {
    setWindowTitle(contents->windowTitle());
    std::ranges::transform(kLightImageNames, mLightImages.begin(), [&](const char* name) {
        return images.imageNamed(QLatin1String(name));
    });
    switchLightsOff();
    mStage = new ProportionalStage(std::move(contents), std::move(settleTimer), this);
    setCentralWidget(mStage);
    setScale(firstScale(mStage->minimum(), screen()));
}

void TunerWindow::switchLightsOff() {
    for (int light = 0; light < kLevelLights; ++light) {
        setLight(levelLight(light), LightImage::gray16x16);
    }
    setLight(TunerLight::inTune, LightImage::gray28x28);
    setLight(TunerLight::flat, LightImage::gray24x24);
    setLight(TunerLight::sharp, LightImage::gray24x24);
}

void TunerWindow::setScale(double factor) {
    const Extent minimum = mStage->minimum();
    const double scale = std::max(1.0, factor);
    const QSize chrome = sizeHint() - mStage->sizeHint();
    resize(QSize(static_cast<int>(std::lround(minimum.width * scale)),
                 static_cast<int>(std::lround(minimum.height * scale))) +
           chrome);
}

void TunerWindow::closeEvent(QCloseEvent* event) {
    if (!mCloseRequest) return QMainWindow::closeEvent(event);
    event->ignore();
    mCloseRequest();
}

void TunerWindow::setText(TunerText field, std::string_view text) {
    mOutlets.text(field).setText(fromUtf8(text));
}

std::string TunerWindow::text(TunerText field) const {
    return mOutlets.text(field).text().toStdString();
}

void TunerWindow::setTip(TunerText field, std::string_view tip) {
    mOutlets.text(field).setTip(fromUtf8(tip));
}

void TunerWindow::setHidden(TunerText field, bool hidden) {
    mOutlets.text(field).setHidden(hidden);
}

void TunerWindow::setLight(TunerLight light, LightImage image) {
    mOutlets.light(light).setImage(mLightImages[static_cast<std::size_t>(image)]);
}

void TunerWindow::setMeterCent(float cents) { mOutlets.meter->setCent(cents); }
void TunerWindow::setMeterThreshold(long cents) { mOutlets.meter->setThreshold(cents); }
void TunerWindow::setMeterEnabled(bool enabled) { mOutlets.meter->setEnabled(enabled); }

void TunerWindow::setStrobeSampleRate(float hz) { mOutlets.strobe->setSampleRate(hz); }
void TunerWindow::setStrobeFrequency(float hz) { mOutlets.strobe->setFrequency(hz); }
void TunerWindow::setStrobePeak(float amplitude) {
    if (!mReducesMotion) mOutlets.strobe->setPeak(amplitude);
}
void TunerWindow::setStrobeData(FrameRef frame) {
    if (!mReducesMotion) mOutlets.strobe->setData(std::move(frame));
}

void TunerWindow::setReducesMotion(bool reduces) {
    if (reduces) { // no picture of a moment stays behind
        setStrobeData(nullptr);
        setScopeData(nullptr);
    }
    mReducesMotion = reduces;
}

void TunerWindow::setScopePeak(float amplitude) {
    if (!mReducesMotion && mNeighbours.scopePeak) mNeighbours.scopePeak(amplitude);
}

void TunerWindow::setScopeData(FrameRef frame) {
    if (!mReducesMotion && mNeighbours.scopeData) mNeighbours.scopeData(std::move(frame));
}

void TunerWindow::setPianoNote(int key) {
    if (mNeighbours.pianoNote) mNeighbours.pianoNote(key);
}

} // namespace veltrano
