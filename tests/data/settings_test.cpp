#include "fundfile/settings.h"

#include "tests/data/support.h"

#include <QSettings>
#include <QString>

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

using testdata::NumberOf;

/// The user's configuration folder is one of the test's own.
class UserSettingsTest : public testing::Test {
  protected:
    UserSettingsTest() { Use(folder.Path()); }

    static void Use(const testdata::fs::path& path) {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                           QString::fromStdString(path.string()));
    }
    static std::string Get(std::string_view key) {
        return UserSettings().Get(settings::kApplication, settings::kStartUp, key);
    }
    static void Save(std::string_view key, std::string_view text) {
        UserSettings().Save(settings::kApplication, settings::kStartUp, key, text);
    }

    testdata::TemporaryFolder folder;
};

TEST_F(UserSettingsTest, AMissingTextIsEmpty) {
    EXPECT_EQ(Get(settings::kStartPath), "");
}

TEST_F(UserSettingsTest, WhatIsSavedIsReadByTheNextStart) {
    Save(settings::kStartX, "7");
    Save(settings::kStartPath, "/fonder/åke/Mina fonder.mdb");
    EXPECT_EQ(Get(settings::kStartX), "7");
    EXPECT_EQ(Get(settings::kStartPath), "/fonder/åke/Mina fonder.mdb");
}

TEST_F(UserSettingsTest, ASavedTextReplacesTheFormerOne) {
    Save(settings::kStartX, "30");
    Save(settings::kStartX, "1");
    EXPECT_EQ(Get(settings::kStartX), "1");
}

class UserSettingsText : public UserSettingsTest,
                         public testing::WithParamInterface<std::string> {};

TEST_P(UserSettingsText, ComesBackUnchanged) {
    Save(settings::kStartPath, GetParam());
    EXPECT_EQ(Get(settings::kStartPath), GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, UserSettingsText,
                         testing::Values("", " ", "a, b,c", "C:\\Fonder\\x.mdb", "@Invalid()",
                                         "\"quoted\"", "semi;colon = equals", "åäö ÅÄÖ é ¶ €",
                                         "%USER% %41"));

TEST_F(UserSettingsTest, ApplicationsSectionsAndKeysAreKeptApart) {
    UserSettings store;
    store.Save("Kvarnbo", "StartUp", "StartX", "1");
    store.Save("Kvarnbo", "Annat", "StartX", "2");
    store.Save("Annat", "StartUp", "StartX", "3");
    EXPECT_EQ(store.Get("Kvarnbo", "StartUp", "StartX"), "1");
    EXPECT_EQ(store.Get("Kvarnbo", "Annat", "StartX"), "2");
    EXPECT_EQ(store.Get("Annat", "StartUp", "StartX"), "3");
}

TEST_F(UserSettingsTest, ALineEditedByHandWithCommasIsOneText) {
    testdata::fs::create_directories(folder / "Kvarnbo");
    testdata::WriteText(folder / "Kvarnbo/Kvarnbo.ini", "[StartUp]\nStartX=1, 2\n");
    EXPECT_EQ(Get(settings::kStartX), "1, 2");
}

TEST_F(UserSettingsTest, AStoreThatCannotBeWrittenSaysSo) {
    testdata::WriteText(folder / "blocked", "a file where the folder should be");
    Use(folder / "blocked");
    EXPECT_EQ(NumberOf([] { Save(settings::kStartX, "7"); }), ErrorNumber::PermissionDenied);
}

}  // namespace
