#include "presentation/picture_library.h"

namespace TabulonLib12 {

PictureLibrary::PictureLibrary(ImageElement& imageStyle, ImageElement& imageUp, ImageElement& imageDown)
    : imageStyle_(imageStyle), imageUp_(imageUp), imageDown_(imageDown) {}

}  // namespace TabulonLib12
