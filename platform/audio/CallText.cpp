// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/audio/CallText.h"

#include <array>
#include <charconv>

namespace veltrano::call_text {

std::string_view nameOf(HardwareCall call) {
    static constexpr std::array<std::string_view, 22> kNames = {"devices",
                                                                "defaultDevice",
                                                                "streamFormat",
                                                                "streamConfiguration",
                                                                "deviceName",
                                                                "deviceManufacturer",
                                                                "isDataSourceWritable",
                                                                "dataSources",
                                                                "dataSource",
                                                                "dataSourceName",
                                                                "setDataSource",
                                                                "isVolumeWritable",
                                                                "volume",
                                                                "setVolume",
                                                                "addHardwareListener",
                                                                "removeHardwareListener",
                                                                "addDeviceListener",
                                                                "removeDeviceListener",
                                                                "addIOProc",
                                                                "removeIOProc",
                                                                "start",
                                                                "stop"};
    static_assert(static_cast<std::size_t>(HardwareCall::stop) + 1 == kNames.size());
    return kNames[static_cast<std::size_t>(call)];
}

std::string word(std::uint32_t number) {
    return number == kWildcardChannel ? "all" : std::to_string(number);
}

std::string word(float value) {
    std::array<char, 64> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), result.ptr};
}

std::string word(Direction direction) { return direction == Direction::input ? "input" : "output"; }

std::string word(PropertyCode property) {
    const auto code = static_cast<std::uint32_t>(property);
    return {static_cast<char>(code >> 24), static_cast<char>(code >> 16 & 0xFF),
            static_cast<char>(code >> 8 & 0xFF), static_cast<char>(code & 0xFF)};
}

} // namespace veltrano::call_text
