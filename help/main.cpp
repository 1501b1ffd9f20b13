// kvarnbo-hjalp [FILE[#PAGE]]: shows a help file, the installed one where none is named. A path
// that arrives in several words is put together again.

#include "base/tooloptions.h"
#include "help/helplook.h"
#include "help/helpwindow.h"
#include "help/openhelp.h"
#include "platform/qttext.h"
#include "widgets/svgicon.h"

#include <QApplication>
#include <QStyleFactory>

namespace {

constexpr const char* kUsage =
    "usage: kvarnbo-hjalp [FILE[#PAGE]]\n"
    "Shows a help file of Kvarnbo in a window, at a page where one is named;\n"
    "the installed one where no file is named.\n";

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2) {
        if (const auto status = Answered("kvarnbo-hjalp", argv[1], kUsage)) return *status;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kvarnbo-hjalp"));
    QApplication::setWindowIcon(SvgIcon(QStringLiteral(":/icons/kvarnbo.svg")));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(helplook::Palette());
    application.setStyleSheet(helplook::WindowStyle());
    const HelpPlace place = HelpPlaceOf(FromQt(QApplication::arguments().mid(1).join(u' ')));
    HelpWindow window(OpenHelp(place.path));
    window.ShowPage(place.page);
    window.show();
    return QApplication::exec();
}
