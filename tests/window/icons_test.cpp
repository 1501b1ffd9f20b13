// The pictures on the buttons, with no plugin of the toolkit to be found.

#include "tests/window/windowtest.h"
#include "widgets/imagebutton.h"

#include <QCoreApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QStringList>
#include <QToolButton>

#include <algorithm>
#include <vector>

namespace {

class IconsTest : public WindowTest {
  protected:
    IconsTest() { QCoreApplication::setLibraryPaths({}); }
    ~IconsTest() override { QCoreApplication::setLibraryPaths(folders_); }

    static int ColouredPixels(const QIcon& icon) {
        const QImage picture = icon.pixmap(32, 32).toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).alpha() > 127) ++count;
            }
        }
        return count;
    }

  private:
    const QStringList folders_ = QCoreApplication::libraryPaths();
};

}  // namespace

TEST_F(IconsTest, AreDrawnWithoutPlugins) {
    MakeFile({TestHolding{}});
    Start();
    const std::vector<QToolButton*> buttons{Window().Image4, Window().Image5, Window().imgScreen,
                                            Window().imgColor, Window().imgGrafNr};
    for (const QToolButton* button : buttons) {
        EXPECT_GT(ColouredPixels(button->icon()), 30) << FromQt(button->objectName());
    }
    EXPECT_GT(ColouredPixels(Window().windowIcon()), 100);
}

TEST_F(IconsTest, ADisabledPictureIsPaler) {
    MakeFile({TestHolding{}});
    Start();
    const QIcon icon = Window().imgScreen->icon();
    const auto strongest = [&](QIcon::Mode mode) {
        const QImage picture = icon.pixmap(QSize(32, 32), mode).toImage();
        int alpha = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                alpha = std::max(alpha, picture.pixelColor(x, y).alpha());
            }
        }
        return alpha;
    };
    EXPECT_GT(strongest(QIcon::Normal), 200);
    EXPECT_LT(strongest(QIcon::Disabled), 150);
    EXPECT_GT(strongest(QIcon::Disabled), 50);
}
