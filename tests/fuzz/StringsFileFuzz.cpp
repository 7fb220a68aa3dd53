// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file of key and value pairs.
#include "platform/foundation/StringsFile.h"
#include "tests/fuzz/Require.h"

#include <algorithm>

namespace veltrano::fuzz {
namespace {

std::string written(const StringsDictionary& pairs) {
    std::string text;
    for (const auto& [key, value] : pairs)
        text += '"' + propertyString(key) + "\"=\"" + propertyString(value) + "\";\n";
    return text;
}

bool isUtf8(std::string_view text) {
    while (const auto character = firstUtf8(text))
        text.remove_prefix(character->length);
    return text.empty();
}

bool isShort(std::string_view key) { return key.size() < 2; }

void checkRefused(std::string_view text, const StringsFile& file) {
    // No line end is shorter than a byte.
    const auto most = static_cast<long>(text.size()) + 1;
    require(file.errorLine >= 1 && file.errorLine <= most,
            "a refused text has the line of its offence");
    require(!parseStringsFile("/* \n */" + std::string(text)).pairs,
            "a comment before it mends nothing");
}

void checkTaken(std::string_view text, const StringsFile& file) {
    require(file.errorLine == 0, "a taken text has no offence");
    require(isUtf8(text), "only UTF-8 is taken");
    require(parseStringsFile(written(*file.pairs)).pairs == file.pairs, "what is written is read");
    require(parseStringsFile("/* \n */ // \r" + std::string(text) + "\n//").pairs == file.pairs,
            "comments around it change nothing");
    StringsDictionary some = *file.pairs;
    std::erase_if(some, [](const auto& pair) { return !isShort(pair.first); });
    require(parseStringsFile(text, isShort).pairs == some, "the filter takes the others away");
}

} // namespace
} // namespace veltrano::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace veltrano;
    const std::string_view text = fuzz::textOf(data, size);
    const StringsFile file = parseStringsFile(text);
    if (file.pairs)
        fuzz::checkTaken(text, file);
    else
        fuzz::checkRefused(text, file);
    return 0;
}
