#pragma once
// A window on a fund file of its own, a fixed date and a scripted outside world, and verbs for what
// a user does.

#include "app/frmPPM.h"
#include "jet/value.h"
#include "platform/caption.h"
#include "platform/qttext.h"
#include "tests/support/fakeplatform.h"
#include "tests/window/fundfiles.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"
#include "widgets/statuspanels.h"
#include "widgets/tag.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

class DataGrid;

class WindowTest : public ::testing::Test {
  protected:
    ~WindowTest() override;
    void TearDown() override;

    // Before the window
    std::filesystem::path Folder() const;
    std::filesystem::path SamplePath() const;  ///< "Vimmels_exempel.mdb" in the program folder
    void MakeFile(const std::vector<TestHolding>& holdings);
    void CopySample(const std::string& name);  ///< one of our own fund files
    void SetToday(int year, unsigned month, unsigned day);

    // The window
    void Create();  ///< loads; nothing is shown yet
    void Show();    ///< shown and activated for the first time
    void Start();   ///< Create, Show, and the start-up pause gone by
    void PassPause();
    frmPPM& Window();
    void CloseWindow();
    /// What a desktop does: the window loses the keys, and with it everything in it is hidden.
    void Minimise();
    void Restore();

    // What a user does
    void ChooseFund(int row);  ///< clicks on the line, counted from 0
    void Press(Qt::Key key);   ///< pressed and let go in the focused control
    void PressIn(QWidget* control, Qt::Key key);
    void Type(const std::string& text);       ///< into the focused control
    void TypePrice(const std::string& text);  ///< into txtValue, then Enter
    void GoToNewRow(const DataGrid& grid);    ///< the empty one at the end
    void Click(QWidget* control, Qt::MouseButton button = Qt::LeftButton);

    // What there is afterwards
    std::vector<std::string> Lines() const;
    std::vector<CurvePoint> PointsOf(std::int32_t kontoId);
    std::string Holding(int row, std::size_t column);  ///< as stored in the file
    std::string Status(int panel);
    ScaleRange DrawnScale();  ///< as the picture's upper and lower edge stand for it
    std::string FraData(int index);
    std::string Bytes() const;  ///< the whole file
    std::vector<std::string> Faults();

    FakePlatform outside;

  private:
    std::unique_ptr<frmPPM> window_;
};
