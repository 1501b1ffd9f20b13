#pragma once
// The page of the day's round on a file of ten funds, and what stands there.

#include "jet/database.h"
#include "tests/window/windowtest.h"
#include "widgets/texttable.h"

#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>

#include <cstddef>
#include <cstdint>
#include <string>

inline constexpr std::int32_t kRoundDay = 46342;  // 2026-11-16
inline constexpr int kPriceColumn = 5;
inline constexpr int kChangeColumn = 6;

class DayPricesTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(ManyHoldings(10));
        Start();
    }
    void Open() { Press(Qt::Key_F6); }
    void TypeAndEnter(const std::string& price) {
        Type(price);
        Press(Qt::Key_Return);
    }
    void Paste(const char* text) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        QTest::keySequence(Window().txtNyKurs, QKeySequence::Paste);
    }
    std::string Cell(int row, int column) {
        return Window()
            .grdKurser->Rows()
            .at(static_cast<std::size_t>(row))
            .cells.at(static_cast<std::size_t>(column));
    }
    std::size_t Rows() { return Window().grdKurser->Rows().size(); }
    int Row() { return Window().grdKurser->CurrentRow(); }
    std::string Field() { return Caption(Window().txtNyKurs); }
    std::string Note() { return Caption(Window().lblKursBesked); }
    std::string Done() { return Caption(Window().lblKlara); }
    bool Shown() { return Window().panKurser->isVisible(); }
    int TodaysPoints() {
        return Window()
            .FundDb->OpenRecordSet("SELECT * FROM PLOTTDATA WHERE XCord = 46342")
            ->RecordCount();
    }
};
