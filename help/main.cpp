// kvarnbo-hjalp [FILE]: shows a help file, the installed one where none is named. A path that
// arrives in several words is put together again.

#include "base/tooloptions.h"
#include "help/helplook.h"
#include "help/helpwindow.h"
#include "help/openhelp.h"
#include "platform/caption.h"
#include "widgets/svgicon.h"

#include <QApplication>
#include <QStyleFactory>

namespace {

constexpr const char* kUsage =
    "usage: kvarnbo-hjalp [FILE]\n"
    "Shows a help file of Kvarnbo in a window; the installed one where none is named.\n";

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
    const QString path = QApplication::arguments().mid(1).join(u' ');
    HelpWindow window(OpenHelp(FromQt(path)));
    window.show();
    return QApplication::exec();
}
