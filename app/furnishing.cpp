#include "app/furnishing.h"

#include "platform/qttext.h"
#include "widgets/colours.h"
#include "widgets/imagebutton.h"
#include "widgets/svgicon.h"
#include "widgets/valuelabel.h"

#include <QPalette>
#include <QString>

void Speak(QWidget* control, std::string_view name) {
    QWidget* speaking = control->focusProxy() != nullptr ? control->focusProxy() : control;
    speaking->setAccessibleName(ToQt(name));
}
void Tip(QWidget* control, std::string_view text) {
    control->setToolTip(ToQt(text));
}

QLabel* Heading(QWidget* parent, std::string_view text, QWidget* buddy) {
    auto* label = new ValueLabel(parent);
    label->setText(ToQt(text));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ToQColor(colours::kQuietText));
    label->setPalette(palette);
    label->setBuddy(buddy);
    return label;
}

ImageButton* PictureButton(frmPPM& window, QWidget* panel, const TwipRect& rect,
                           const QString& picture) {
    auto* button = new ImageButton(panel);
    button->setIcon(SvgIcon(picture));
    Placed(window, button, rect);
    window.layout.AlsoScale(
        [button](const Scaling&) { button->setIconSize(button->size() * 3 / 4); });
    return button;
}
