// SPDX-License-Identifier: GPL-3.0-or-later
// Scala scale files of twelve notes.
#pragma once

#include "tuning/Temperament.h"

#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Reads a scale into twelve ratios to its tonic, and writes one. Thread: any.
class ScalaScaleData {
public:
    /// Equal temperament: degrees that a file does not give keep it.
    ScalaScaleData();

    /// Reads the bytes of a file (ISO Latin-1). False: refused; errorMessage() says why, and is
    /// absent when an empty line is the reason. An object is used for one file.
    bool parseData(std::string_view bytes);

    const std::optional<std::string>& description() const { return mDescription; } ///< UTF-8
    const RatioTable& scaleData() const { return mRatio; } ///< by degree, the tonic first
    const std::optional<std::string>& errorMessage() const { return mErrorMessage; }

    /// @p utf8 without white space at its ends, control characters replaced by spaces, at most 80
    /// characters (code points).
    static std::string trimString(std::string_view utf8);

    /// The bytes of a file in ISO Latin-1; characters that it lacks become "?".
    /// @param name, description UTF-8
    /// @param ratios eleven of them are written in cents as they are given; the first is not
    static std::string scaleDataWithName(std::string_view name, std::string_view description,
                                         const RatioTable& ratios);

private:
    /// One that is no comment. @param number 0 ... 12
    bool takeLine(int number, const std::string& line);

    std::optional<std::string> mDescription;
    std::optional<std::string> mErrorMessage;
    RatioTable mRatio;
};

} // namespace veltrano
