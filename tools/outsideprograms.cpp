#include "tools/outsideprograms.h"

#include "app/frmPPM.h"
#include "app/rules/helppage.h"
#include "base/error.h"
#include "platform/platform.h"
#include "platform/programs.h"
#include "tools/texts.h"

#include <QAction>

#include <string>

OutsidePrograms::OutsidePrograms(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuFLogg, &QAction::triggered, [this] { mnuFLogg_Click(); });
    On(window.mnuNotePad, &QAction::triggered, [this] { mnuNotePad_Click(); });
    On(window.mnuHelp, &QAction::triggered, [this] { mnuHelp_Click(); });
}

void OutsidePrograms::mnuFLogg_Click() {
    Start(texts::EditorCommand, texts::LogFile, texts::NoEditor);
}

void OutsidePrograms::mnuNotePad_Click() {
    Start(texts::EditorCommand, texts::NotesFile, texts::NoEditor);
}

void OutsidePrograms::mnuHelp_Click() {
    Start(texts::HelpCommand, texts::HelpFile, texts::NoHelpViewer);
}

void OutsidePrograms::ShowHelpPage() {
    const std::string page(HelpPageFor(window.State()));
    Start(texts::HelpCommand, std::string(texts::HelpFile) + texts::kHelpPageMark + page,
          texts::NoHelpViewer);
}

void OutsidePrograms::Start(std::string_view command, std::string_view file,
                            std::string_view failure) try {
    // The path stands without quotes, blanks in it or not.
    window.platform.programs.Start(std::string(command) + window.AppFolder + std::string(file));
} catch (const Error&) {
    Tell(failure);
}
