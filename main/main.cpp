// Builds the real outside world and the window.

#include "fundfile/appfolder.h"
#include "main/mainwindow.h"
#include "platform/realplatform.h"

#include <QApplication>
#include <QStyleFactory>

int main(int argc, char* argv[]) {
    QApplication program(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kvarnbo"));
    QApplication::setDesktopFileName(QStringLiteral("se.kvarnbo.kvarnbo"));
    // One look on every desktop: the window's own colours are made for it.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    RealPlatform outside(AppFolder(FindProgramFolders()), KVARNBO_LIBEXEC_FOLDER);
    MainWindow window(outside.platform);
    window.show();
    return QApplication::exec();
}
