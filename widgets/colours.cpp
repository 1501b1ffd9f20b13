#include "widgets/colours.h"

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>

namespace {

struct NamedColour {
    QStringView name;
    Colour colour;
};

/// Those that style sheets name.
constexpr std::array kNamed = {NamedColour{u"white", colours::kWhite},
                               NamedColour{u"background", colours::kBackground},
                               NamedColour{u"panel", colours::kPanel},
                               NamedColour{u"alternateRow", colours::kAlternateRow},
                               NamedColour{u"text", colours::kText},
                               NamedColour{u"disabledText", colours::kDisabledText},
                               NamedColour{u"title", colours::kTitle},
                               NamedColour{u"heading", colours::kHeading},
                               NamedColour{u"headingDate", colours::kHeadingDate},
                               NamedColour{u"notice", colours::kNotice},
                               NamedColour{u"accent", colours::kAccent},
                               NamedColour{u"border", colours::kBorder},
                               NamedColour{u"separator", colours::kSeparator},
                               NamedColour{u"buttonBorder", colours::kButtonBorder},
                               NamedColour{u"hover", colours::kHover},
                               NamedColour{u"pressed", colours::kPressed},
                               NamedColour{u"pressedText", colours::kPressedText},
                               NamedColour{u"disabledButton", colours::kDisabledButton},
                               NamedColour{u"disabledBorder", colours::kDisabledBorder},
                               NamedColour{u"listBackground", colours::kListBackground},
                               NamedColour{u"listBorder", colours::kListBorder},
                               NamedColour{u"listFocus", colours::kListFocus},
                               NamedColour{u"listHandle", colours::kListHandle},
                               NamedColour{u"field", colours::kField},
                               NamedColour{u"fieldFocused", colours::kFieldFocused},
                               NamedColour{u"fieldText", colours::kFieldText},
                               NamedColour{u"helpPanel", colours::kHelpPanel},
                               NamedColour{u"helpLead", colours::kHelpLead},
                               NamedColour{u"helpMessage", colours::kHelpMessage},
                               NamedColour{u"helpPressed", colours::kHelpPressed}};

QString TextOf(QStringView name) {
    const auto* found = std::find_if(kNamed.begin(), kNamed.end(),
                                     [name](const NamedColour& one) { return one.name == name; });
    assert(found != kNamed.end());
    return found == kNamed.end() ? QString() : ToQColor(found->colour).name();
}

}  // namespace

QColor ToQColor(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

QString Coloured(const QString& styleSheet) {
    const QStringList parts = styleSheet.split(u'$');
    QString made = parts.front();
    for (const QString& part : parts.mid(1)) {
        const auto end = std::find_if_not(part.begin(), part.end(),
                                          [](QChar character) { return character.isLetter(); });
        const auto length = std::distance(part.begin(), end);
        made += TextOf(QStringView(part).left(length)) + part.mid(length);
    }
    return made;
}
