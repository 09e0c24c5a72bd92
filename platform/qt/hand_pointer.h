#pragma once
// The hand pointer of hyperlink cells: a 32 by 32 picture drawn by our own code with painter
// paths, its hot spot at the tip of the pointing finger.
#include <QCursor>
#include <QImage>
#include <QPoint>

namespace TabulonLib12 {

QImage HandPointerImage();   // 32 x 32, ARGB32, transparent around the hand
QPoint HandPointerHotSpot();  // the finger tip
QCursor HandPointerCursor();

}  // namespace TabulonLib12
