// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuning/MVTemperamentDocument.h"

#include "platform/desktop/AtomicFile.h"
#include "platform/desktop/TextFile.h"
#include "platform/foundation/NotificationNames.h"
#include "tuning/ScalaScaleData.h"

#include <any>
#include <cmath>
#include <filesystem>

namespace veltrano {

namespace {

constexpr double kFileStep = 1e-9; ///< [cents] the last decimal of a file

/// Written this way round, a value that is no number equals none.
bool isSameInAFile(double cents, double other) { return std::abs(cents - other) < kFileStep; }

/// For trying something out that must not be told as a failure.
struct SilentLog final : Log {
    void line(std::string_view) override {}
    void detail(std::string_view) override {}
};

} // namespace

MVTemperamentDocument::MVTemperamentDocument(const Ports& ports)
    : TuningDocument(ports.services, {std::string(kTemperamentTypeName), "temperament"}),
      mNotifications(ports.notifications), mPrefs(ports.prefs), mLibrary(ports.library),
      mTemperament(ports.prefs.referencePitch(), ports.prefs.tonic()) {
    mObservations.push_back(
        mNotifications.observe(notification::kReferencePitch, [this](const std::any&) {
            mTemperament.setReferencePitch(mPrefs.referencePitch());
            updateUI();
        }));
    mObservations.push_back(
        mNotifications.observe(notification::kRootKeyChanged, [this](const std::any&) {
            mTemperament.setTonic(mPrefs.tonic());
            updateUI();
        }));
}

MVTemperamentDocument::~MVTemperamentDocument() {
    setWindow(nullptr); // its controls know this class
}

std::string MVTemperamentDocument::cell(Temperament::Column column, int row) const {
    return mTemperament.cell(column, row);
}

bool MVTemperamentDocument::shouldEdit(Temperament::Column column, int row) const {
    return mTemperament.mayEdit(column, row);
}

void MVTemperamentDocument::setCell(Temperament::Column column, int row, std::string_view text) {
    if (!shouldEdit(column, row)) return;
    State before = state();
    if (!mTemperament.setCell(column, row, text)) {
        services().panels.beep();
        return;
    }
    finishEdit("Edit", std::move(before));
    updateUI(); // the other columns of the row
}

std::function<void()> MVTemperamentDocument::valuesRestorer() {
    return [this, saved = mTemperament] {
        mTemperament = saved;
        // The settings may have moved on since; what they say is not for undo to change.
        if (saved.referencePitch() != mPrefs.referencePitch()) {
            mTemperament.setReferencePitch(mPrefs.referencePitch());
        }
        if (saved.tonic() != mPrefs.tonic()) mTemperament.setTonic(mPrefs.tonic());
    };
}

void MVTemperamentDocument::postEdited() {
    mNotifications.post(notification::kTemperamentEdited,
                        static_cast<const EditedTemperament*>(this));
}

bool MVTemperamentDocument::readData(std::string_view bytes) {
    auto entry = temperament_file::readData(bytes, services().log);
    if (!entry) return false;
    mTemperament.setCents(entry->temperament, services().log);
    setNameString(std::move(entry->name));
    setDescriptionString(std::move(entry->description));
    return true;
}

bool MVTemperamentDocument::readScalaScaleData(std::string_view bytes) {
    ScalaScaleData scale;
    if (!scale.parseData(bytes)) return false;
    if (!mTemperament.setScalaRatios(scale.scaleData(), services().log)) return false;
    setDescriptionString(scale.description());
    return true;
}

bool MVTemperamentDocument::importScalaFile(std::string_view path) {
    const TextFile file = readTextFile(path);
    if (!file.bytes) {
        services().log.detail(file.error);
        return false;
    }
    if (!loadDataRepresentation(*file.bytes, kScalaTypeName)) return false;
    setName(folder_library::fileName(path));
    return true;
}

bool MVTemperamentDocument::loadDataRepresentation(std::string_view bytes,
                                                   std::string_view typeName) {
    if (typeName != kScalaTypeName) return TuningDocument::loadDataRepresentation(bytes, typeName);
    if (!readScalaScaleData(bytes)) return false;
    didLoad();
    return true;
}

std::string MVTemperamentDocument::data() const {
    return temperament_file::data(mTemperament.cents(), name(), description());
}

bool MVTemperamentDocument::readsBack(std::string_view bytes) {
    const auto entry = temperament_file::readData(bytes, services().log);
    if (!entry || !hasTexts(entry->name, entry->description)) return false;
    // Opened again in the same root key, the pattern is shifted back, which can leave the range.
    Temperament reopened = mTemperament;
    SilentLog silent;
    reopened.setCents(entry->temperament, silent);
    const CentTable& cents = mTemperament.cents();
    for (std::size_t row = 0; row < cents.size(); ++row) {
        const double written = cents[row] - cents[temperament::rowOfA(0)];
        if (!isSameInAFile(entry->temperament[row], written) ||
            !isSameInAFile(reopened.cents()[row], cents[row]))
            return false;
    }
    return true;
}

void MVTemperamentDocument::updateLibrary(const std::string& path) {
    // kept: the library takes the ratios in, not the cents
    const TemperamentEntry entry{name(), description(), mTemperament.ratios(), path};
    if (!mLibrary || !mLibrary->updateTemperament(entry)) return;
    mNotifications.post(notification::kTemperamentSaved,
                        static_cast<const EditedTemperament*>(this));
}

void MVTemperamentDocument::exportTemperament() {
    const std::string stem = std::filesystem::path(displayName()).stem().string();
    const auto path = askForPath({.title = "Export",
                                  .prompt = "Export",
                                  .folder = {},
                                  .proposedName = stem + ".scl",
                                  .type = {std::string(kScalaTypeName), "scl"}});
    if (path) exportTemperamentTo(*path);
}

bool MVTemperamentDocument::exportTemperamentTo(const std::string& path) {
    // kept: the ratios are those to A, not those to the tonic
    const std::string bytes =
        ScalaScaleData::scaleDataWithName(name(), description(), mTemperament.ratios());
    const auto error = writeFileAtomically(path, bytes);
    if (!error) return true;
    services().log.detail(path + ": " + *error);
    services().panels.alert("Unable to export Scala Scale File (.scl).",
                            "Veltrano failed to export to a Scala Scale File (.scl) at " + path +
                                ".");
    return false;
}

} // namespace veltrano
