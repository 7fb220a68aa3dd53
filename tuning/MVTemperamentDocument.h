// SPDX-License-Identifier: GPL-3.0-or-later
// A temperament being edited.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/desktop/Document.h"
#include "platform/foundation/NotificationCenter.h"
#include "tuning/MVTemperamentLibrary.h"
#include "tuning/ScalaScaleData.h"
#include "tuning/Temperament.h"
#include "tuning/TuningSettings.h"

#include <optional>
#include <string>

namespace veltrano {

inline constexpr std::string_view kTemperamentPasteboardType =
    "morvane.temperament.cents.PboardType";
inline constexpr std::string_view kTemperamentTypeName = "Veltrano Temperament";
inline constexpr std::string_view kScalaTypeName = "Scala Scale";

/// Thread: main. Follows the reference pitch and the root key of the settings.
class MVTemperamentDocument final : public Document, public EditedTemperament {
public:
    struct Ports {
        DocumentServices services;
        NotificationCenter& notifications;
        const TuningSettings& prefs;
        MVTemperamentLibrary* library = nullptr; ///< null: saves change no library
    };
    /// The controls of its window; they outlive the document or are taken back by clearing them.
    struct Outlets {
        TextOutlet* name = nullptr;
        TextOutlet* description = nullptr;
        Refreshable* table = nullptr;
        Refreshable* graph = nullptr;
    };

    explicit MVTemperamentDocument(const Ports& ports);

    /// Hands over the window's controls and fills them.
    void windowControllerDidLoadNib(const Outlets& outlets);

    // EditedTemperament
    std::string fileName() const override { return path(); }
    CentTable temperamentCents() const override { return mTemperament.cents(); }

    const Temperament& values() const { return mTemperament; }
    const RatioTable& temperament() const { return mTemperament.ratios(); }
    std::string name() const;        ///< the name field's text; without a window the string's
    std::string description() const; ///< likewise
    void setNameString(std::string_view name);
    void setDescriptionString(std::string_view description);

    // Table
    static constexpr int numberOfRows() { return 12; }
    std::string cell(Temperament::Column column, int row) const;
    bool shouldEdit(Temperament::Column column, int row) const;
    /// A refused text sounds the beep and changes nothing.
    void setCell(Temperament::Column column, int row, std::string_view text);

    /// The user typed into the name or description field, which shows the new text already.
    void controlTextDidChange(const TextOutlet& field);

    // Edit menu
    void copy();
    void cut();
    void paste();
    void deleteAll();
    bool isPastable() const;

    // Files
    bool readData(std::string_view bytes);
    bool readScalaScaleData(std::string_view bytes);
    std::string data() const;
    void exportTemperament(); ///< to a Scala file, with its panel
    bool loadDataRepresentation(std::string_view bytes, std::string_view typeName) override;
    std::string dataRepresentationOfType(std::string_view typeName) override;
    void updateChangeCount(ChangeKind kind) override;
    void setPrintInfo(const PrintInfo& info) override;
    bool saveToFile(const std::string& path, SaveOperation operation) override;

protected:
    bool readsBack(std::string_view bytes) override;
    bool writeToFile(const std::string& path, std::string_view typeName,
                     const std::string& originalPath, SaveOperation operation) override;
    void documentDidSave(bool didSave) override;
    void documentDidRevert() override;

private:
    void updateUI();

    NotificationCenter& mNotifications;
    const TuningSettings& mPrefs;
    MVTemperamentLibrary* const mLibrary;
    Outlets mOutlets;
    Temperament mTemperament;
    std::optional<std::string> mNameString;
    std::optional<std::string> mDescriptionString;
    bool mIsSaveToFile = false;
    std::vector<NotificationCenter::Observation> mObservations;
};

} // namespace veltrano
