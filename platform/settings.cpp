#include "platform/settings.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QMetaType>
#include <QSettings>
#include <QString>
#include <QVariant>

namespace {

QString Address(std::string_view section, std::string_view key) {
    return ToQt(section) + QLatin1Char('/') + ToQt(key);
}

}  // namespace

std::string UserSettings::Get(std::string_view application, std::string_view section,
                              std::string_view key) const {
    const QSettings store(QSettings::IniFormat, QSettings::UserScope, ToQt(application),
                          ToQt(application));
    // A line edited by hand may hold commas without quotes,
    // which reads as a list: it is one text here.
    const QVariant value = store.value(Address(section, key));
    if (value.typeId() == QMetaType::QStringList) {
        return FromQt(value.toStringList().join(QStringLiteral(", ")));
    }
    return FromQt(value.toString());
}

void UserSettings::Save(std::string_view application, std::string_view section,
                        std::string_view key, std::string_view text) {
    QSettings store(QSettings::IniFormat, QSettings::UserScope, ToQt(application),
                    ToQt(application));
    store.setValue(Address(section, key), ToQt(text));
    store.sync();
    if (store.status() != QSettings::NoError) {
        throw Error{ErrorNumber::PermissionDenied,
                    "the settings cannot be written: " + FromQt(store.fileName())};
    }
}
