// kvarnbo-hjalp FILE: shows a help file. A path that arrives in several words is put together
// again.

#include "help/helplook.h"
#include "help/helpwindow.h"
#include "help/openhelp.h"
#include "platform/caption.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kvarnbo-hjalp"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kvarnbo.svg")));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(helplook::Palette());
    application.setStyleSheet(helplook::WindowStyle());
    const QString path = QApplication::arguments().mid(1).join(u' ');
    HelpWindow window(OpenHelp(FromQt(path)));
    window.show();
    return QApplication::exec();
}
