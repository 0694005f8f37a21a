#pragma once

#include <QIcon>

namespace inspector {

/// What the style's own icons lack.
enum class Sign { ZoomIn, ZoomOut, Fit, ActualSize, Print, Contrast, ColorTable };

/// Drawn in the colours of the application's palette.
QIcon SignIcon(Sign sign);

}  // namespace inspector
