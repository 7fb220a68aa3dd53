// SPDX-License-Identifier: GPL-3.0-or-later
// A stretch table being edited.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "tuning/MVStretchLibrary.h"
#include "tuning/TuningDocument.h"

#include <string>
#include <string_view>

namespace veltrano {

inline constexpr std::string_view kStretchPasteboardType = "morvane.Stretch.PboardType";
inline constexpr std::string_view kStretchTypeName = "Veltrano Stretch";

/// Thread: main. Rows are pitch classes, columns are octaves.
class MVStretchDocument final : public TuningDocument, public EditedStretch {
public:
    struct Ports {
        DocumentServices services;
        NotificationCenter& notifications;
        MVStretchLibrary* library = nullptr; ///< null: saves change no library
    };

    explicit MVStretchDocument(const Ports& ports);
    ~MVStretchDocument() override;

    // EditedStretch
    std::string fileName() const override { return folder_library::cleanPath(path()); }
    StretchTable stretch() const override { return mStretch; }

    const StretchTable& stretchDoubles() const { return mStretch; } ///< [cents] by key number

    // Table
    static constexpr int numberOfRows() { return 12; }
    static constexpr int numberOfOctaves() { return 9; }
    static std::string_view noteName(int row); ///< what the column "note" shows
    /// @param row 0 (C) ... 11 @param octave 0 ... 8
    std::string cell(int row, int octave) const;
    /// A refused text sounds the beep and changes nothing.
    void setCell(int row, int octave, std::string_view text);

    // Files
    bool readData(std::string_view bytes) override; ///< kept: may change values and then refuse
    std::string data() const override;
    /// Whether reading @p bytes gives this document again, to the decimals of a file.
    bool readsBack(std::string_view bytes) override;

protected:
    std::string_view pasteboardType() const override { return kStretchPasteboardType; }
    std::function<void()> valuesRestorer() override;
    void clearValues() override { mStretch.fill(0); }
    void postEdited() override;
    void updateLibrary(const std::string& path) override;
    /// What is saved there can be chosen in the settings.
    std::string folderOfNew() const override { return mLibrary ? mLibrary->folder() : ""; }

private:
    NotificationCenter& mNotifications;
    MVStretchLibrary* const mLibrary;
    StretchTable mStretch{};
};

} // namespace veltrano
