#include "widgets/boundfield.h"

#include "platform/caption.h"
#include "platform/datasource.h"
#include "tests/support/memoryrecords.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using jet::ColumnType;

class BoundFieldTest : public ::testing::Test {
  protected:
    BoundFieldTest() {
        auto* column = new QVBoxLayout(&window_);
        column->addWidget(&name_);
        column->addWidget(&amount_);
        Give({{jet::Value("Ada"), jet::Value(1.5F)}, {jet::Value("Bo"), jet::Value()}});
        QObject::connect(&source_, &DataSource::Failed, &source_,
                         [this](int number) { failures_.push_back(number); });
        name_.Bind(&source_, "Namn");
        amount_.Bind(&source_, "Belopp");
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
        name_.setFocus();
    }

    void Give(std::vector<MemoryRecords::Row> rows) {
        records_ = std::make_shared<MemoryRecords>(
            std::vector<jet::ColumnDesign>{{.name = "Namn", .type = ColumnType::Text, .size = 50},
                                           {.name = "Belopp", .type = ColumnType::Single}},
            std::move(rows));
        source_.SetRecordSet(records_);
    }
    void Retype(EntryField& field, const char* text) {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClicks(&field, QString::fromUtf8(text));
    }
    std::string Stored(std::size_t row, std::size_t field) const {
        return records_->Rows().at(row).at(field).Text();
    }

    QWidget window_;
    BoundField name_{&window_};
    BoundField amount_{&window_};
    DataSource source_{"dtaTest", "Test"};
    std::shared_ptr<MemoryRecords> records_;
    std::vector<int> failures_;
};

TEST_F(BoundFieldTest, ShowsTheCurrentRow) {
    EXPECT_EQ(Caption(&name_), "Ada");
    EXPECT_EQ(Caption(&amount_), "1,5");
    source_.MoveNext();
    EXPECT_EQ(Caption(&name_), "Bo");
    EXPECT_EQ(Caption(&amount_), "");
}

TEST_F(BoundFieldTest, ShowsNothingOnAnEmptySetAndTakesNoTyping) {
    Give({});
    EXPECT_EQ(Caption(&name_), "");
    QTest::keyClicks(&name_, QStringLiteral("x"));
    EXPECT_EQ(Caption(&name_), "");
    EXPECT_TRUE(failures_.empty());
}

TEST_F(BoundFieldTest, ShowsNothingAtTheEnd) {
    source_.MoveTo(2);
    EXPECT_EQ(Caption(&name_), "");
    EXPECT_TRUE(name_.isReadOnly());
}

TEST_F(BoundFieldTest, ShowsNothingWithoutARecordSet) {
    source_.SetRecordSet(nullptr);
    EXPECT_EQ(Caption(&name_), "");
}

TEST_F(BoundFieldTest, WhatCannotBeReadIsEmptyWithoutAMessage) {
    records_->readFails = ErrorNumber::RecordDeleted;
    source_.Refresh();
    EXPECT_EQ(Caption(&name_), "");
    EXPECT_TRUE(name_.isReadOnly());
    EXPECT_TRUE(failures_.empty());
}

TEST_F(BoundFieldTest, StoresWhenItIsLeft) {
    Retype(name_, "Eva");
    EXPECT_EQ(Stored(0, 0), "Ada");
    amount_.setFocus();
    EXPECT_EQ(Stored(0, 0), "Eva");
    EXPECT_EQ(Stored(1, 0), "Bo");
}

TEST_F(BoundFieldTest, ChangesNothingWhenNothingWasTyped) {
    records_->updateFails = ErrorNumber::ReadOnly;
    amount_.setFocus();
    EXPECT_TRUE(failures_.empty());
}

TEST_F(BoundFieldTest, ReadsACommaNumber) {
    Retype(amount_, "2,25");
    EXPECT_TRUE(amount_.Store());
    EXPECT_EQ(Stored(0, 1), "2.25");
}

TEST_F(BoundFieldTest, AnEmptiedFieldIsStoredAsNothing) {
    Retype(name_, "");
    EXPECT_TRUE(name_.Store());
    EXPECT_TRUE(records_->Rows()[0][0].IsNull());
}

TEST_F(BoundFieldTest, WhatCannotBeStoredStaysTyped) {
    Retype(amount_, "1,2,3");
    EXPECT_FALSE(amount_.Store());
    EXPECT_EQ(failures_, std::vector<int>{13});
    EXPECT_EQ(Caption(&amount_), "1,2,3");
    EXPECT_FALSE(source_.Pending());
}

TEST_F(BoundFieldTest, ReloadForgetsWhatWasTyped) {
    Retype(name_, "Eva");
    name_.Reload();
    EXPECT_EQ(Caption(&name_), "Ada");
    EXPECT_FALSE(name_.Changed());
}

TEST_F(BoundFieldTest, AnotherFieldsStoringKeepsWhatIsBeingTyped) {
    Retype(name_, "Eva");
    source_.Edit();
    source_.Set("Belopp", 9.0F);
    source_.Update();
    EXPECT_EQ(Caption(&name_), "Eva");
    EXPECT_EQ(Caption(&amount_), "9");
}

TEST_F(BoundFieldTest, DownAndUpGoToTheNeighbours) {
    QTest::keyClick(&name_, Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &amount_);
    QTest::keyClick(&amount_, Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), &name_);
}

}  // namespace
