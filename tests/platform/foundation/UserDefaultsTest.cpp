// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

class UserDefaultsTest : public testing::Test {
protected:
    QString path(const char* name = "settings.conf") const {
        return mFolder.filePath(QString::fromUtf8(name));
    }
    /// A file of its own for each text: QSettings keeps what it read.
    UserDefaults withText(const QByteArray& text) {
        const QString name = mFolder.filePath(QStringLiteral("%1.conf").arg(++mFiles));
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return UserDefaults(name);
    }

private:
    QTemporaryDir mFolder;
    int mFiles = 0;
};

TEST_F(UserDefaultsTest, MissingValuesReadAsNothing) {
    const UserDefaults defaults(path());
    EXPECT_FALSE(defaults.hasStored("key"));
    EXPECT_EQ(defaults.floatForKey("key"), 0.0F);
    EXPECT_EQ(defaults.integerForKey("key"), 0);
    EXPECT_FALSE(defaults.boolForKey("key"));
    EXPECT_EQ(defaults.stringForKey("key"), std::nullopt);
}

TEST_F(UserDefaultsTest, RegisteredDefaultsStandInForMissingValues) {
    UserDefaults defaults(path());
    defaults.registerDefault("f", 440.0);
    defaults.registerDefault("i", 57);
    defaults.registerDefault("b", true);
    defaults.registerDefault("s", QStringLiteral("text"));
    EXPECT_EQ(defaults.floatForKey("f"), 440.0F);
    EXPECT_EQ(defaults.integerForKey("i"), 57);
    EXPECT_TRUE(defaults.boolForKey("b"));
    EXPECT_EQ(defaults.stringForKey("s"), "text");
    EXPECT_FALSE(defaults.hasStored("f")) << "a registered default is not stored";
    defaults.synchronize();
    EXPECT_FALSE(UserDefaults(path()).hasStored("f"));
}

TEST_F(UserDefaultsTest, StoredValuesComeBackInAnotherRun) {
    {
        UserDefaults defaults(path());
        defaults.setFloat("f", 442.5F);
        defaults.setInteger("i", -7);
        defaults.setBool("yes", true);
        defaults.setBool("no", false);
        defaults.setString("s", "Grüße, \"Welt\"; 音 = \\ # %");
        defaults.setString("empty", "");
        EXPECT_TRUE(defaults.synchronize());
    }
    UserDefaults defaults(path());
    defaults.registerDefault("no", true);
    EXPECT_EQ(defaults.floatForKey("f"), 442.5F);
    EXPECT_EQ(defaults.integerForKey("i"), -7);
    EXPECT_TRUE(defaults.boolForKey("yes"));
    EXPECT_FALSE(defaults.boolForKey("no")) << "stored wins over registered";
    EXPECT_EQ(defaults.stringForKey("s"), "Grüße, \"Welt\"; 音 = \\ # %");
    EXPECT_EQ(defaults.stringForKey("empty"), "");
}

TEST_F(UserDefaultsTest, FloatsComeBackBitByBit) {
    for (const float value : {440.123456F, 0.1F, 1e-30F, 16777217.0F, -3.4028235e38F, 1e-45F}) {
        SCOPED_TRACE(value);
        UserDefaults defaults(path());
        defaults.setFloat("f", value);
        defaults.synchronize();
        EXPECT_EQ(UserDefaults(path()).floatForKey("f"), value);
    }
}

TEST_F(UserDefaultsTest, FloatsAreWrittenWithAPoint) {
    {
        UserDefaults defaults(path());
        defaults.setFloat("f", 442.5F);
        defaults.synchronize();
    }
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("f=442.5\n"));
}

TEST_F(UserDefaultsTest, RemovedValuesAreMissing) {
    UserDefaults defaults(path());
    defaults.registerDefault("i", 3);
    defaults.setInteger("i", 5);
    defaults.synchronize();
    defaults.remove("i");
    defaults.remove("never there");
    EXPECT_FALSE(defaults.hasStored("i"));
    EXPECT_EQ(defaults.integerForKey("i"), 3);
    defaults.synchronize();
    EXPECT_FALSE(UserDefaults(path()).hasStored("i"));
}

TEST_F(UserDefaultsTest, UnreadableNumbersReadAsTheRegisteredDefault) {
    for (const char* text : {"abc", "", "12abc", "440,5", "nan", "inf", "1e99", "@Invalid()"}) {
        SCOPED_TRACE(text);
        UserDefaults defaults = withText(QByteArray("n=") + text + "\n");
        EXPECT_EQ(defaults.floatForKey("n"), 0.0F);
        EXPECT_EQ(defaults.integerForKey("n"), 0);
        defaults.registerDefault("n", 57);
        EXPECT_EQ(defaults.floatForKey("n"), 57.0F);
        EXPECT_EQ(defaults.integerForKey("n"), 57);
    }
}

TEST_F(UserDefaultsTest, NumberBeyondTheIntegersIsUnreadableAsOne) {
    UserDefaults defaults = withText("n=99999999999\n");
    EXPECT_EQ(defaults.floatForKey("n"), 99999999999.0F);
    EXPECT_EQ(defaults.integerForKey("n"), 0);
    defaults.registerDefault("n", 57);
    EXPECT_EQ(defaults.integerForKey("n"), 57);
}

TEST_F(UserDefaultsTest, NumbersOfAHandEditedFile) {
    constexpr struct {
        const char* text;
        float asFloat;
        int asInteger;
    } kCases[] = {
        {"440", 440, 440},        {" 440 ", 440, 440}, {"+3", 3, 3},        {"-3", -3, -3},
        {"442.75", 442.75F, 442}, {"-0.9", -0.9F, 0},  {"4.4e2", 440, 440}, {"\"440\"", 440, 440},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.text);
        const UserDefaults defaults = withText(QByteArray("n=") + test.text + "\n");
        EXPECT_EQ(defaults.floatForKey("n"), test.asFloat);
        EXPECT_EQ(defaults.integerForKey("n"), test.asInteger);
    }
}

TEST_F(UserDefaultsTest, SwitchesOfAHandEditedFile) {
    constexpr struct {
        const char* text;
        bool without; ///< a registered default
        bool with;    ///< the registered default true
    } kCases[] = {
        {"true", true, true},     {"TRUE", true, true}, {"1", true, true},    {"yes", true, true},
        {"false", false, false},  {"0", false, false},  {"no", false, false}, {"No", false, false},
        {"perhaps", false, true}, {"", false, true},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.text);
        UserDefaults defaults = withText(QByteArray("b=") + test.text + "\n");
        EXPECT_EQ(defaults.boolForKey("b"), test.without);
        defaults.registerDefault("b", true);
        EXPECT_EQ(defaults.boolForKey("b"), test.with);
    }
}

TEST_F(UserDefaultsTest, UnquotedCommaOfAHandEditedFileStaysInTheText) {
    EXPECT_EQ(withText("s=Zoom, Inc. : Mic\n").stringForKey("s"), "Zoom, Inc. : Mic");
}

TEST_F(UserDefaultsTest, FileThatIsNoSettingsFileReadsAsEmpty) {
    const UserDefaults defaults = withText(QByteArray("\0\xFF\xFE garbage \n=\n[\n", 16));
    EXPECT_FALSE(defaults.hasStored("key"));
    EXPECT_EQ(defaults.integerForKey("key"), 0);
}

TEST_F(UserDefaultsTest, SynchronizeTellsWhetherWritingWorked) {
    UserDefaults defaults(QStringLiteral("/proc/no-such-folder/settings.conf"));
    defaults.setInteger("i", 1);
    EXPECT_EQ(defaults.integerForKey("i"), 1) << "this run still has it";
    EXPECT_FALSE(defaults.synchronize());
}

} // namespace
} // namespace veltrano
