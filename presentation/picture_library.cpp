#include "presentation/picture_library.h"

namespace TabulonLib12 {

PictureLibrary::PictureLibrary(const ControlElements& e)
    : imageStyle_(*e.ImageStyle), imageUp_(*e.ImageUP), imageDown_(*e.ImageDown) {}

}  // namespace TabulonLib12
