#pragma once
// Where every control stands on the design size, and how the whole follows another size and
// another font. Knows no control by name: the furnish files place their own.

#include "app/rules/stretch.h"
#include "app/rules/twips.h"

#include <functional>
#include <unordered_map>
#include <vector>

class QWidget;

/// The kinds of text that follow another size in their own ways.
enum class FontKind { Control, List, Grid };

/// What sizes across and down and font sizes are multiplied by.
struct Scaling {
    Scales window, rigid;  ///< rigid: for what holds text
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
    /// What of a placed panel takes the room that is left by what holds text. Not said: the
    /// whole panel is scaled.
    void Elastic(const QWidget* panel, Span across, Span down);
    /// The same across, for the controls of the panel alone whose tops lie in `rows`.
    void ElasticRow(const QWidget* panel, Span rows, Span across);
    /// The widget of this design size that everything else stands in.
    void PlaceAll(const QWidget* client, TwipRect design);
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
    struct Row {
        Span rows, across;
    };
    /// A widget with others in it: its design's size, its present one and what stretches.
    struct Panel {
        float width = 0, height = 0;
        float actualWidth = 0, actualHeight = 0;
        Span across = {}, down = {};
        std::vector<Row> rows = {};
    };
    void ApplyFont(const WithFont& one) const;
    TwipRect PlaceIn(const Panel& panel, const TwipRect& rect) const;

    std::vector<Placed> placed_;
    std::vector<WithFont> fonts_;
    std::unordered_map<const QWidget*, Panel> panels_;
    std::vector<std::function<void(const Scaling&)>> also_;
    const QWidget* client_ = nullptr;
    Scaling scaling_;
};

/// Twips as whole logical pixels.
int Pixels(float twips);
