// SPDX-License-Identifier: GPL-3.0-or-later
// A temperament being edited.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "tuning/MVTemperamentLibrary.h"
#include "tuning/Temperament.h"
#include "tuning/TuningDocument.h"
#include "tuning/TuningSettings.h"

#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

inline constexpr std::string_view kTemperamentPasteboardType =
    "morvane.temperament.cents.PboardType";
inline constexpr std::string_view kTemperamentTypeName = "Veltrano Temperament";
inline constexpr std::string_view kScalaTypeName = "Scala Scale";

/// Thread: main. Follows the reference pitch and the root key of the settings.
class MVTemperamentDocument final : public TuningDocument, public EditedTemperament {
public:
    struct Ports {
        DocumentServices services;
        NotificationCenter& notifications;
        const TuningSettings& prefs;
        MVTemperamentLibrary* library = nullptr; ///< null: saves change no library
    };

    explicit MVTemperamentDocument(const Ports& ports);
    ~MVTemperamentDocument() override;

    // EditedTemperament
    std::string fileName() const override { return folder_library::cleanPath(path()); }
    CentTable temperamentCents() const override { return mTemperament.cents(); }

    const Temperament& values() const { return mTemperament; }
    const RatioTable& temperament() const { return mTemperament.ratios(); }

    // Table
    static constexpr int numberOfRows() { return 12; }
    std::string cell(Temperament::Column column, int row) const;
    bool shouldEdit(Temperament::Column column, int row) const;
    /// A refused text sounds the beep and changes nothing.
    void setCell(Temperament::Column column, int row, std::string_view text);

    // Files
    bool readData(std::string_view bytes) override;
    bool readScalaScaleData(std::string_view bytes);
    /// Reads a Scala file and takes its name; the file does not become the document's. False:
    /// refused. @param path whole
    bool importScalaFile(std::string_view path);
    std::string data() const override;
    /// Whether reading @p bytes gives this document again, to the decimals of a file.
    bool readsBack(std::string_view bytes) override;
    void exportTemperament(); ///< to a Scala file, with its panel
    /// To that Scala file. False: failed, the user was told. @param path whole
    bool exportTemperamentTo(const std::string& path);
    bool loadDataRepresentation(std::string_view bytes, std::string_view typeName) override;

protected:
    std::string_view pasteboardType() const override { return kTemperamentPasteboardType; }
    std::function<void()> valuesRestorer() override;
    void clearValues() override { mTemperament.clearTemperament(); }
    void postEdited() override;
    void updateLibrary(const std::string& path) override;
    /// What is saved there can be chosen in the settings.
    std::string folderOfNew() const override { return mLibrary ? mLibrary->folder() : ""; }

private:
    NotificationCenter& mNotifications;
    const TuningSettings& mPrefs;
    MVTemperamentLibrary* const mLibrary;
    Temperament mTemperament;
    std::vector<NotificationCenter::Observation> mObservations;
};

} // namespace veltrano
