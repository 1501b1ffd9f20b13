#include "tests/window/windowtest.h"

#include "fundfile/queries.h"
#include "jet/database.h"
#include "main/mainwindow.h"
#include "tests/support/samplefiles.h"
#include "widgets/datagrid.h"

#include <QApplication>
#include <QLabel>
#include <QRect>
#include <QTableView>

#include <chrono>
#include <cmath>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

WindowTest::~WindowTest() = default;

void WindowTest::TearDown() {
    outside.dialogs.Verify();
    window_.reset();
}

fs::path WindowTest::Folder() const {
    return FromQt(outside.folder.path());
}
fs::path WindowTest::SamplePath() const {
    return Folder() / "Vimmels_exempel.mdb";
}

void WindowTest::MakeFile(const std::vector<TestHolding>& holdings) {
    window_.reset();
    WriteFundFile(SamplePath(), holdings);
}

void WindowTest::CopySample(const std::string& name) {
    fs::copy_file(samplefiles::FundFile(name), SamplePath(), fs::copy_options::overwrite_existing);
    fs::permissions(SamplePath(), fs::perms::owner_write, fs::perm_options::add);
}

void WindowTest::SetToday(int year, unsigned month, unsigned day) {
    outside.clock.SetToday(std::chrono::year_month_day{
        std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}});
}

void WindowTest::Create() {
    window_.reset();  // the one before closes its file for everybody
    window_ = std::make_unique<MainWindow>(outside.platform);
}

void WindowTest::Show() {
    window_->show();
    QApplication::setActiveWindow(window_.get());
    QApplication::processEvents();
}

void WindowTest::PassPause() {
    outside.clock.Pass(std::chrono::milliseconds(3000));
}

void WindowTest::Start() {
    Create();
    Show();
    PassPause();
    QApplication::processEvents();
}

frmPPM& WindowTest::Window() {
    return *window_;
}
void WindowTest::CloseWindow() {
    window_->close();
}

void WindowTest::Minimise() {
    QApplication::setActiveWindow(nullptr);
    // Every control gets a Hide that comes from outside the program.
    window_->setWindowState(window_->windowState() | Qt::WindowMinimized);
    QApplication::processEvents();
}

void WindowTest::Restore() {
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    QApplication::setActiveWindow(window_.get());
    QApplication::processEvents();
}

void WindowTest::ChooseFund(int row) {
    QListWidget& list = *window_->lstFonder;
    const QRect place = list.visualItemRect(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place.center());
}

void WindowTest::PressIn(QWidget* control, Qt::Key key) {
    QTest::keyClick(control, key);
}

void WindowTest::Press(Qt::Key key) {
    QWidget* focused = window_->focusWidget();
    QTest::keyClick(focused != nullptr ? focused : window_.get(), key);
}

void WindowTest::Type(const std::string& text) {
    QTest::keyClicks(window_->focusWidget(), ToQt(text));
}

void WindowTest::TypePrice(const std::string& text) {
    window_->txtValue->setFocus();
    Type(text);
    Press(Qt::Key_Return);
}

void WindowTest::Click(QWidget* control, Qt::MouseButton button) {
    QTest::mouseClick(control, button);
}

std::vector<std::string> WindowTest::Lines() const {
    std::vector<std::string> lines;
    for (int i = 0; i < window_->lstFonder->count(); ++i) {
        lines.push_back(FromQt(window_->lstFonder->item(i)->text()));
    }
    return lines;
}

std::vector<CurvePoint> WindowTest::PointsOf(std::int32_t kontoId) {
    const auto rows = window_->FundDb->OpenRecordSet(queries::PointsOf(kontoId));
    std::vector<CurvePoint> points;
    for (std::int32_t i = 0; i < rows->RecordCount(); ++i) {
        points.push_back({rows->At(i, 0).Integer(), rows->At(i, 1).Integer()});
    }
    return points;
}

std::string WindowTest::Holding(int row, std::size_t column) {
    return window_->FundDb->OpenRecordSet("FONDDATA")->At(row, column).Text();
}

void WindowTest::GoToNewRow(const DataGrid& grid) {
    QTableView& view = grid.View();
    view.setCurrentIndex(view.model()->index(view.model()->rowCount() - 1, 0));
}

ScaleRange WindowTest::DrawnScale() {
    const DiagramView& picture = *Window().picDiagram;
    const auto value = [&](double y) {
        return static_cast<std::int32_t>(std::lround(picture.ToUser({0, y}).y));
    };
    return {.top = value(0), .bottom = value(picture.height())};
}

std::string WindowTest::Status(int panel) {
    return window_->staBar->Text(panel);
}
std::string WindowTest::FraData(int index) {
    return Caption(window_->lblFraData[index]);
}

std::string WindowTest::Bytes() const {
    std::ifstream file(SamplePath(), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::string> WindowTest::Faults() {
    return window_->FundDb->Verify();
}
