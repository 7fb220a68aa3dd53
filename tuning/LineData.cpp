// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a text in ISO Latin-1.
#include "tuning/LineData.h"

#include <algorithm>

namespace veltrano {

void LineData::setData(std::string_view latin1) {
    mString = latin1;
    mRange = {0, latin1.size()};
}

std::optional<std::string_view> LineData::nextLine() {
    if (mRange.length == 0) return std::nullopt;
    const std::string_view rest = mString.substr(mRange.location, mRange.length);
    const std::size_t contents = std::min(rest.find_first_of("\n\r\x85"), rest.size());
    const bool isPair = rest.substr(contents).starts_with("\r\n");
    const std::size_t taken = std::min(contents + (isPair ? 2 : 1), rest.size());
    mRange.location += taken;
    mRange.length -= taken;
    return rest.substr(0, contents);
}

} // namespace veltrano
