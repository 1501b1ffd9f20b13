#include "tools/about.h"

#include "app/frmPPM.h"
#include "base/version.h"
#include "platform/caption.h"
#include "tools/texts.h"

#include <QAction>
#include <QMenu>

#include <string>

About::About(frmPPM& ppm) : Controller(ppm) {
    QAction* about = window.mnuHjalp->addAction(ToQt(texts::About));
    about->setObjectName(QStringLiteral("mnuOm"));
    On(about, &QAction::triggered, [this] { mnuOm_Click(); });
}

void About::mnuOm_Click() {
    Tell(std::string(texts::AboutVersion) + std::string(Version()) + std::string(texts::AboutFile) +
         window.CurrentFile + std::string(texts::AboutFolder) + window.AppFolder);
}
