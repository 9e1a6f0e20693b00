#pragma once
// Angles on an ellipse. What a file gives is the direction from the centre, as the eye sees it; a canvas
// wants the parameter, in which the ellipse is a stretched circle. Both are in degrees, clockwise from the
// right.

#include "platform/drawing.h"

namespace vellumark::deck {

/// The parameter of the place on an ellipse that lies in a direction. It grows with the direction without a
/// jump, and both agree at each quarter turn, also where a radius is 0.
double ellipseParameter(double direction, double radiusX, double radiusY);

/// The place of a parameter on an ellipse about a centre.
platform::DrawPoint onEllipse(platform::DrawPoint centre, double radiusX, double radiusY, double parameter);

/// The direction of a vector, from -180 to 180 degrees.
double directionOf(double x, double y);

}  // namespace vellumark::deck
