// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/MVStretchDocument.h"

#include "platform/foundation/NotificationNames.h"
#include "tuning/PitchClass.h"
#include "tuning/Temperament.h"

#include <cmath>

namespace veltrano {

namespace {

constexpr double kFileStep = 1e-3; ///< [cents] the last decimal of a file

constexpr int keyOf(int row, int octave) { return row + kPitchClasses * octave; }

} // namespace

MVStretchDocument::MVStretchDocument(const Ports& ports)
    : TuningDocument(ports.services, {std::string(kStretchTypeName), "stretch"}),
      mNotifications(ports.notifications), mLibrary(ports.library) {}

MVStretchDocument::~MVStretchDocument() {
    setWindow(nullptr); // its controls know this class
}

std::string_view MVStretchDocument::noteName(int row) { return temperament::noteName(row); }

std::string MVStretchDocument::cell(int row, int octave) const {
    return temperament::centText(mStretch[static_cast<std::size_t>(keyOf(row, octave))]);
}

void MVStretchDocument::setCell(int row, int octave, std::string_view text) {
    State before = state();
    if (!stretch_file::setCell(mStretch, keyOf(row, octave), text)) {
        services().panels.beep();
        return;
    }
    finishEdit("Edit", std::move(before));
    updateUI();
}

std::function<void()> MVStretchDocument::valuesRestorer() {
    return [this, saved = mStretch] { mStretch = saved; };
}

void MVStretchDocument::postEdited() {
    mNotifications.post(notification::kStretchEdited, static_cast<const EditedStretch*>(this));
}

bool MVStretchDocument::readData(std::string_view bytes) {
    auto names = stretch_file::readInto(mStretch, bytes, services().log);
    if (!names) return false;
    setNameString(std::move(names->name));
    setDescriptionString(std::move(names->description));
    return true;
}

std::string MVStretchDocument::data() const {
    return stretch_file::data(mStretch, name(), description());
}

bool MVStretchDocument::readsBack(std::string_view bytes) {
    const auto entry = stretch_file::readData(bytes, services().log);
    if (!entry || !hasTexts(entry->name, entry->description)) return false;
    for (std::size_t key = 0; key < mStretch.size(); ++key) {
        // Written this way round, a value that is no number does not read back.
        if (!(std::abs(entry->stretch[key] - mStretch[key]) < kFileStep)) return false;
    }
    return true;
}

void MVStretchDocument::updateLibrary(const std::string& path) {
    const StretchEntry entry{name(), description(), mStretch, path};
    if (!mLibrary || !mLibrary->updateStretch(entry)) return;
    mNotifications.post(notification::kStretchSaved, static_cast<const EditedStretch*>(this));
}

} // namespace veltrano
