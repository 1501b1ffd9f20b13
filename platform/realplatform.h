#pragma once
// The real outside world, put together. Only main needs it.

#include "platform/clock.h"
#include "platform/keystrokes.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "platform/programs.h"
#include "platform/qtdialogs.h"
#include "platform/qttext.h"
#include "platform/screen.h"
#include "platform/settings.h"
#include "platform/swedishtexts.h"

#include <QCoreApplication>
#include <QDir>

#include <string>
#include <utility>

class RealPlatform {
  public:
    RealPlatform(std::string programFolder, std::string viewerFolder)
        : programs_(std::move(viewerFolder)),
          platform{dialogs_,
                   clock_,
                   settings_,
                   printing_,
                   programs_,
                   screen_,
                   keyStrokes_,
                   std::move(programFolder),
                   FromQt(QDir::homePath())} {
        QCoreApplication::installTranslator(&swedishTexts_);
    }
    RealPlatform(const RealPlatform&) = delete;
    RealPlatform& operator=(const RealPlatform&) = delete;

  private:
    SwedishTexts swedishTexts_;
    QtDialogs dialogs_;
    SystemClock clock_;
    UserSettings settings_;
    SystemPrinting printing_{dialogs_};
    DesktopPrograms programs_;
    DesktopScreen screen_;
    FocusKeyStrokes keyStrokes_;

  public:
    Platform platform;
};
