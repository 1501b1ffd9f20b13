#include "app/startup.h"

#include "app/fileexists.h"
#include "app/frmPPM.h"
#include "app/rules/daystep.h"
#include "app/rules/modes.h"
#include "app/rules/screenfactor.h"
#include "app/rules/texts.h"
#include "app/texts.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/path.h"
#include "base/text.h"
#include "fundfile/fundfile.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "fundfile/texts.h"
#include "jet/transaction.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/screen.h"
#include "platform/settings.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QRect>
#include <QSize>

#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kStartUpPause{3000};

std::string Setting(const frmPPM& window, std::string_view key) {
    return window.platform.settings.Get(settings::kApplication, settings::kStartUp, key);
}

void SaveSetting(frmPPM& window, std::string_view key, std::string_view text) {
    window.platform.settings.Save(settings::kApplication, settings::kStartUp, key, text);
}

bool HasRows(DataSource& source) {
    return source.IsAttached() && !source.Empty();
}

}  // namespace

StartUp::StartUp(frmPPM& ppm) : Controller(ppm) {
    const auto activated = [this](QEvent&) {
        Form_Activate();
        return false;
    };
    // A desktop may show a window without making it the active one:
    // it comes up complete all the same.
    OnEvent(&window, QEvent::Show, activated);
    OnEvent(&window, QEvent::WindowActivate, activated);
    OnEvent(&window, QEvent::Close, [this](QEvent& event) {
        if (window.MayLeaveFile()) {
            Unload();
            return false;
        }
        event.ignore();
        return true;
    });
    On(window.mnuAvbryt, &QAction::triggered, [this] { window.close(); });
}

void StartUp::Load() {
    const QRect screen = window.platform.screen.Area();
    const float factor = ScreenFactor(ScreenWidthTwips(screen.width(), screen.height()));
    if (factor != 1.0F) window.ScaleToScreen(factor);
    window.FitInto(window.platform.screen.RoomForWindow());

    SetToday();
    window.MonthNames = Split(texts::MonthNames, "|");
    window.AppFolder = WithSeparator(window.platform.programFolder);

    ReadSettings();
    OpenDatabase();
    window.Activated = false;
    window.ShowState();
    Timer1_ =
        window.platform.clock.After(kStartUpPause, [this] { Run([this] { Timer1_Timer(); }); });
}

void StartUp::SetToday() {
    const auto today = window.platform.clock.Today();
    window.TodayDay = DayNumber(today);
    window.CurrentMonth = static_cast<std::int32_t>(static_cast<unsigned>(today.month()));
}

void StartUp::BringTodayUpToDate() {
    const std::int32_t before = window.TodayDay;
    SetToday();
    if (window.TodayDay == before) return;
    window.ShowState();
    window.FollowToday(before);
}

void StartUp::ReadSettings() {
    const std::string sample = window.AppFolder + std::string(texts::SampleFile);
    window.CurrentFile = Setting(window, settings::kStartPath);
    Skipping skip;
    // The first start of all has no setting, and no file has an empty name: both settings are made.
    if (!FileExists(window.CurrentFile)) {
        window.CurrentFile = sample;
        skip([&] { SaveSetting(window, settings::kStartPath, sample); });
        skip([&] { SaveSetting(window, settings::kStartX, "1"); });
    }
    window.DayStep = daystep::kDay;
    skip([&] { window.DayStep = ParseInteger(Setting(window, settings::kStartX)); });
    // A step back would never reach the end of a curve.
    if (window.DayStep < daystep::kDay) window.DayStep = daystep::kDay;
}

void StartUp::OpenDatabase() {
    try {
        opened_ = OpenAndBind(window.CurrentFile, {*window.dtaBasData, *window.dtaPlott},
                              queries::AllPoints());
        window.FundDb = opened_.database;
    } catch (const Error& error) {
        window.NoFileReason = fundtexts::NothingOpen(window.CurrentFile, error.Number());
    }
}

void StartUp::Form_Activate() {
    if (!window.Activated) return Activate();
    BringTodayUpToDate();
}

void StartUp::Activate() {
    window.Activated = true;
    window.ShowMonthsOfToday();
    window.GuardFile();

    // A file that can only be read is shown with the default scales.
    Skipping skip;
    if (HasRows(*window.dtaBasData)) skip([&] { InitialiseScales(); });
    window.KeepChanges();
    window.FillFundList();
    window.ReadCurveList();
    // Whatever was open or being chosen before belongs to another picture.
    WindowState next = AfterHoldingClosed(window.State());
    next.listUse = ListUse::Prices;
    next.picture = Picture::Stays;
    window.Put(std::move(next));
    window.DrawOnAllScale();
    if (window.hasHoldings && window.dtaBasData->RecordCount() == 1) {
        window.OpenSelectedFund();
        window.caption = texts::WindowCaption;
        window.ShowState();
    }
}

void StartUp::InitialiseScales() {
    DataSource& holdings = *window.dtaBasData;
    holdings.MoveFirst();
    if (holdings.Field(schema::holding::kSkala).Text().find('/') != std::string::npos) return;
    // All rows in one go: a file is either without scales or has all of them.
    jet::Transaction transaction(window.FundDb);
    const std::int32_t count = holdings.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        holdings.MoveTo(row);
        window.ComputeFundScale(KontoIdOf(holdings), row != 0);
    }
    transaction.Commit();
    holdings.MoveFirst();
}

void StartUp::Timer1_Timer() {
    window.Put(AfterPause(window.State()));
    window.TellAbout(std::exchange(opened_, {}));
}

void StartUp::ResetPanels() {
    window.Put(AfterPanelsReset(window.State()));
}

void StartUp::Unload() {
    Timer1_.reset();
    window.dtaPlott->Close();
    window.dtaSQL->Close();
    window.dtaBasData->Close();
    CloseFundFile(window.FundDb);
}
