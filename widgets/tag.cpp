#include "widgets/tag.h"

#include "platform/qttext.h"

#include <QObject>
#include <QVariant>

namespace {
constexpr const char* kTag = "tag";
}

void SetTag(QObject* control, std::string_view text) {
    control->setProperty(kTag, ToQt(text));
}

std::string Tag(const QObject* control) {
    return FromQt(control->property(kTag).toString());
}
