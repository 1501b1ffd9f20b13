#pragma once
// The places of the panels on the design size, in twips. The menu bar stands over them.

#include "app/layout.h"

namespace places {

inline constexpr float kMenuHeight = 330;

inline constexpr TwipRect kHeading{120, 90, 11760, 510};

/// The column at the left: the fund list, the plot data and the totals take turns in it.
inline constexpr TwipRect kLeftColumn{120, 690, 3540, 5790};
/// The diagram, which only the holdings grid may cover.
inline constexpr TwipRect kDiagram{3750, 690, 8130, 5790};
/// The picture in it, which takes what room there is.
inline constexpr TwipRect kPicture{615, 420, 7350, 4530};
/// Both of them: the holdings grid.
inline constexpr TwipRect kWholeWidth{120, 690, 11760, 5790};

inline constexpr TwipRect kControls{120, 6570, 3540, 1665};
inline constexpr TwipRect kStartData{3750, 6570, 8130, 1665};
inline constexpr TwipRect kWholeWindow{0, 0, 12000, 8670};
inline constexpr TwipRect kStatusBar{0, 8325, 12000, 345};

}  // namespace places
