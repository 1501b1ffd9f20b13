#include "platform/settings.h"

#include "tests/data/support.h"

#include <QSettings>
#include <QString>

#include <gtest/gtest.h>
#include <ostream>
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

struct SavedText {
    std::string text;
};

void PrintTo(const SavedText& tested, std::ostream* out) {
    *out << "\"" << tested.text << "\"";
}

class UserSettingsText : public UserSettingsTest, public testing::WithParamInterface<SavedText> {};

TEST_P(UserSettingsText, ComesBackUnchanged) {
    Save(settings::kStartPath, GetParam().text);
    EXPECT_EQ(Get(settings::kStartPath), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, UserSettingsText,
                         testing::Values(SavedText{""}, SavedText{" "}, SavedText{"a, b,c"},
                                         SavedText{"C:\\Fonder\\x.mdb"}, SavedText{"@Invalid()"},
                                         SavedText{"\"quoted\""}, SavedText{"semi;colon = equals"},
                                         SavedText{"åäö ÅÄÖ é ¶ €"}, SavedText{"%USER% %41"}));

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
