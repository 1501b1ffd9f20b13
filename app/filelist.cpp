#include "app/filelist.h"

#include "app/frmPPM.h"
#include "app/menuletters.h"
#include "fundfile/listedfiles.h"

#include <QAction>
#include <QMenu>

#include <cstddef>

FileList::FileList(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuArkiv, &QMenu::aboutToShow, [this] { mnuArkiv_Open(); });
    On(window.mnuArkiv, &QMenu::aboutToHide, [this] { PointAt(""); });
    On(window.mnuArkiv, &QMenu::hovered, this, &FileList::mnuArkiv_Hover);
    for (int i = decltype(window.mnuFil)::kFirst; i <= decltype(window.mnuFil)::kLast; ++i) {
        On(window.mnuFil[i], &QAction::triggered, [this, i] { mnuFil_Click(i); });
    }
}

void FileList::mnuArkiv_Open() {
    window.files = ListFundFiles(window.AppFolder, window.CurrentFile);
    window.ShowState();
    MarkLetters(*window.mnuArkiv);
}

/// The whole path of a file, in the status bar; its name may be cut, and stand in two folders.
void FileList::mnuArkiv_Hover(QAction* item) {
    std::string path;
    for (std::size_t i = 0; i < window.files.size(); ++i) {
        if (item == window.mnuFil[static_cast<int>(i) + 1]) path = window.files[i].path;
    }
    PointAt(path);
}

void FileList::PointAt(const std::string& path) {
    window.pointedFile = path;
    window.ShowState();
}

void FileList::mnuFil_Click(int number) {
    window.ShowState();  // a click took the mark away from the open one
    const auto at = static_cast<std::size_t>(number) - 1;
    if (at >= window.files.size()) return;
    const std::string path = window.files[at].path;
    window.OpenChosenFile(path);
}
