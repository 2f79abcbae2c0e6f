#pragma once

#include <QColor>

#include "documents/drawing.h"
#include "ui/printing/drawing_place.h"

class QPainter;

namespace zelvo {

/// A colour of a letter as the painter takes it.
QColor inkOf(const Colour& colour);

/// Paints a drawing into its place. What lies outside of it is left to the caller's clip.
void paintDrawing(QPainter& painter, const Drawing& drawing, const DrawingPlace& place, const PaperFaces& faces);

}  // namespace zelvo
