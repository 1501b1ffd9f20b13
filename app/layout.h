#pragma once
// Where every control stands on the design size, and how the whole follows another size. Knows no
// control by name: the furnish files place their own.

#include "app/rules/twips.h"

#include <functional>
#include <vector>

class QWidget;

/// The kinds of text that follow another size in their own ways.
enum class FontKind { Control, List, Grid };

/// What sizes across and down and font sizes are multiplied by.
struct Scaling {
    float across = 1, down = 1;
    float controlFont = 1, listFont = 1, gridFont = 1;
    float smallestPoints = 8;  ///< no font is made smaller than this; one that is so stays so
    bool operator==(const Scaling&) const = default;
};

class Layout {
  public:
    /// `rect` is in the widget's parent; `points` is the font size on the design size.
    void Place(QWidget* widget, TwipRect rect, float points, FontKind kind = FontKind::Control);
    /// The font alone, for a widget that another layout places.
    void SetFont(QWidget* widget, float points, FontKind kind);
    /// Called after every Apply, for what is no widget's place: column widths, margins, icon sizes.
    void AlsoScale(std::function<void(const Scaling&)> scale);

    void Apply(const Scaling& scaling);

  private:
    struct Placed {
        QWidget* widget;
        TwipRect rect;
    };
    struct WithFont {
        QWidget* widget;
        float points;
        FontKind kind;
    };
    void ApplyFont(const WithFont& one) const;

    std::vector<Placed> placed_;
    std::vector<WithFont> fonts_;
    std::vector<std::function<void(const Scaling&)>> also_;
    Scaling scaling_;
};

/// Twips as whole logical pixels.
int Pixels(float twips);
