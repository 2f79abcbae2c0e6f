#pragma once

#include <QColor>
#include <QRectF>

#include "documents/drawing.h"

class QPainter;

namespace zelvo {

class PaperFaces;

/// A colour of a letter as the painter takes it.
QColor inkOf(const Colour& colour);

/// Paints a drawing into its place. What lies outside its frame is left to the caller's clip.
void paintDrawing(QPainter& painter, const Drawing& drawing, const QRectF& frame, const PaperFaces& faces);

}  // namespace zelvo
