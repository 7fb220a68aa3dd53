// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings ask of the libraries of temperaments and stretch tables.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

class PopUpMenu;

using CentTable = std::array<double, 12>;     ///< [cents] by scale degree above the tonic
using StretchTable = std::array<double, 108>; ///< [cents] by key number

/// The temperaments that can be chosen, by file name. Thread: main. Texts are UTF-8.
class TemperamentLibrary {
public:
    virtual ~TemperamentLibrary() = default;
    virtual std::optional<int> indexOfTemperamentWithFileName(std::string_view fileName) const = 0;
    virtual std::optional<CentTable>
    temperamentCentsForFileName(std::string_view fileName) const = 0;
    virtual void normalizeCents(CentTable& cents, int key) const = 0;
    virtual std::string nameForFileName(std::string_view fileName) const = 0;
    virtual std::string descriptionForFileName(std::string_view fileName) const = 0;
    virtual std::string pathForFileName(std::string_view fileName) const = 0;
    /// The file name of an entry; empty outside the list.
    virtual std::string temperamentFileNameAtIndex(int index) const = 0;
    /// Fills @p menu: the built-in item, then, below a separator, the entries in list order.
    virtual void updatePopUpButton(PopUpMenu& menu) const = 0;
};

/// The stretch tables that can be chosen, by file name. Thread: main. Texts are UTF-8.
class StretchLibrary {
public:
    virtual ~StretchLibrary() = default;
    virtual std::optional<int> indexOfStretchWithFileName(std::string_view fileName) const = 0;
    virtual std::optional<StretchTable> stretchForFileName(std::string_view fileName) const = 0;
    virtual std::string nameForFileName(std::string_view fileName) const = 0;
    virtual std::string descriptionForFileName(std::string_view fileName) const = 0;
    virtual std::string pathForFileName(std::string_view fileName) const = 0;
    /// The file name of an entry; empty outside the list.
    virtual std::string stretchFileNameAtIndex(int index) const = 0;
    /// Fills @p menu: the built-in item, then, below a separator, the entries in list order.
    virtual void updatePopUpButton(PopUpMenu& menu) const = 0;
};

/// What an edited-notification carries: a document as the settings see it.
class EditedTemperament {
public:
    virtual ~EditedTemperament() = default;
    virtual std::string fileName() const = 0; ///< its whole path
    virtual CentTable temperamentCents() const = 0;
};

class EditedStretch {
public:
    virtual ~EditedStretch() = default;
    virtual std::string fileName() const = 0; ///< its whole path
    virtual StretchTable stretch() const = 0;
};

} // namespace veltrano
