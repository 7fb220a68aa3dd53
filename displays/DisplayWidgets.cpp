// SPDX-License-Identifier: GPL-3.0-or-later
// The views of this folder for interface files.
#include "displays/DisplayWidgets.h"

#include "displays/AutoResizeBox.h"
#include "displays/AutoResizeTextField.h"
#include "displays/AutoResizeView.h"
#include "displays/DotView.h"
#include "displays/StrobeView.h"
#include "displays/TuningMeterView.h"

namespace veltrano {

namespace {

template <class View>
QWidget* make(QWidget* parent) {
    return new View(parent);
}

} // namespace

WidgetMakers displayWidgets(ImageLibrary& images) {
    return {
        {QStringLiteral("AutoResizeView"), make<AutoResizeView>},
        {QStringLiteral("AutoResizeTextField"), make<AutoResizeTextField>},
        {QStringLiteral("AutoResizeBox"), make<AutoResizeBox>},
        {QStringLiteral("InTuneDotView"), make<InTuneDotView>},
        {QStringLiteral("OutOfTuneDotView"), make<OutOfTuneDotView>},
        {QStringLiteral("LevelDotView"), make<LevelDotView>},
        {QStringLiteral("StrobeView"),
         [&images](QWidget* parent) { return new StrobeView(images, parent); }},
        {QStringLiteral("TuningMeterView"),
         [&images](QWidget* parent) { return new TuningMeterView(images, parent); }},
    };
}

} // namespace veltrano
