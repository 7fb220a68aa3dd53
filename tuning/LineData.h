// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a text in ISO Latin-1.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace veltrano {

/// Gives one line after the other. A line ends at LF, CR, CR LF or U+0085, the only Unicode
/// separator that ISO Latin-1 can hold. Thread: any. Keeps no copy: the bytes must outlive it.
class LineData {
public:
    static LineData lineDataWithData(std::string_view latin1) { return LineData(latin1); }
    explicit LineData(std::string_view latin1) { setData(latin1); }

    void setData(std::string_view latin1);
    /// The next line without its end, in ISO Latin-1; nullopt when nothing is left.
    std::optional<std::string_view> nextLine();

private:
    std::string_view mString;
    struct {
        std::size_t location = 0;
        std::size_t length = 0;
    } mRange; ///< the part that was not yet read
};

} // namespace veltrano
