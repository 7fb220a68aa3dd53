// SPDX-License-Identifier: GPL-3.0-or-later
// Which engine and which language speak.
#include "platform/desktop/SpeechChoice.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(SpeechChoice, TheServiceOfTheDesktopAndNeverFlite) {
    const struct {
        const char* name;
        QStringList installed;
        const char* chosen;
    } cases[] = {
        {"none", {}, ""},
        {"flite alone", {"flite"}, ""},
        {"the service", {"speechd"}, "speechd"},
        {"the service after others", {"flite", "mock", "speechd"}, "speechd"},
        {"another", {"mock"}, "mock"},
        {"the first of others", {"flite", "mock", "more"}, "mock"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(speech_choice::engine(c.installed).toStdString(), c.chosen) << c.name;
    }
}

TEST(SpeechChoice, EnglishWhereThereIsAny) {
    const QLocale czech("cs_CZ"), german("de_DE"), british("en_GB"), american("en_US");
    const struct {
        const char* name;
        QLocale inUse;
        QList<QLocale> available;
        QLocale chosen;
    } cases[] = {
        {"in use already", british, {american, british}, british},
        {"the American one before", german, {american, british}, american},
        {"the American one after", german, {british, german, american}, american},
        {"another English one", german, {czech, british}, british},
        {"no English", german, {czech, german}, german},
        {"nothing at all", german, {}, german},
        {"no language yet", QLocale::c(), {czech, american, british}, american},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(speech_choice::language(c.inUse, c.available), c.chosen) << c.name;
    }
}

} // namespace
} // namespace veltrano
