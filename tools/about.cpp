#include "tools/about.h"

#include "app/frmPPM.h"
#include "base/version.h"
#include "jet/database.h"
#include "platform/qttext.h"
#include "tools/texts.h"

#include <QAction>
#include <QMenu>

#include <string>

namespace {

constexpr int kAccess97 = 3;

}  // namespace

About::About(frmPPM& ppm) : Controller(ppm) {
    QAction* about = window.mnuHjalp->addAction(ToQt(texts::About));
    about->setObjectName(QStringLiteral("mnuOm"));
    On(about, &QAction::triggered, [this] { mnuOm_Click(); });
}

std::string About::Engine() const {
    const std::string engine = std::string(texts::AboutEngine) + std::string(Version());
    if (!window.FundDb) return engine;
    const bool is97 = window.FundDb->Version() == kAccess97;
    return engine + std::string(is97 ? texts::AboutFormat97 : texts::AboutFormat2000);
}

void About::mnuOm_Click() {
    Tell(std::string(texts::AboutVersion) + std::string(Version()) + std::string(texts::AboutFile) +
         window.CurrentFile + Engine() + std::string(texts::AboutFolder) + window.AppFolder);
}
