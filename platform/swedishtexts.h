#pragma once
// Swedish for what the toolkit's own dialogs and menus say: it brings no Swedish itself.

#include <QTranslator>

class SwedishTexts final : public QTranslator {
  public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    /// Null for a text that stays as it is.
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int count) const override;
};
