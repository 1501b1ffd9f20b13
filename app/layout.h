#pragma once
// Where every control stands on the design size of 12000 x 9000 twips (15 twips to a logical
// pixel), and how the whole follows another size. Knows no control by name: the furnish files place
// their own.

#include <cstdint>
#include <functional>
#include <vector>

class QWidget;

struct TwipRect {
    float left = 0, top = 0, width = 0, height = 0;
    bool operator==(const TwipRect&) const = default;
};

inline constexpr float kDesignWidthTwips = 12000;
inline constexpr float kDesignHeightTwips = 9000;
inline constexpr float kTwipsPerPixel = 15;

class Layout {
  public:
    /// `rect` is in the widget's parent; `points` is the font size on the design size.
    void Place(QWidget* widget, TwipRect rect, float points = 9);
    /// Multiplies places and sizes across and down, and font sizes, from the design size.
    void Apply(float across, float down, float font);
    /// Called after every Apply, for what is no widget's place: column widths, panel widths, grid
    /// lines.
    void AlsoScale(std::function<void(float across, float down, float font)> scale);

    float Across() const { return across_; }
    float Down() const { return down_; }
    float Font() const { return font_; }

  private:
    struct Placed {
        QWidget* widget;
        TwipRect rect;
        float points;
    };
    std::vector<Placed> placed_;
    std::vector<std::function<void(float, float, float)>> also_;
    float across_ = 1, down_ = 1, font_ = 1;
};
