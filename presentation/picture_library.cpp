#include "presentation/picture_library.h"

#include "presentation/drawn_pictures.h"

namespace TabulonLib12 {

PictureLibrary::PictureLibrary(ImageElement& imageStyle, ImageElement& imageUp, ImageElement& imageDown)
    : imageStyle_(imageStyle), imageUp_(imageUp), imageDown_(imageDown) {
    for (StileTestaType style : BandTextureStyles()) {
        const auto index = static_cast<int16_t>(style);
        if (index != 0) imageStyle_.Load(index);
        imageStyle_(index).setPicture(BandTexture(style));
    }
    for (ColorArrowType colour : ArrowColours()) {
        const auto index = static_cast<int16_t>(colour);
        if (index != 0) {
            imageUp_.Load(index);
            imageDown_.Load(index);
        }
        imageUp_(index).setPicture(TabulonLib12::ArrowUp(colour));
        imageDown_(index).setPicture(TabulonLib12::ArrowDown(colour));
    }
}

void PictureLibrary::setCustomStyle(Picture picture) {
    imageStyle_(static_cast<int16_t>(StileTestaType::Custom)).setPicture(std::move(picture));
}
void PictureLibrary::setCustomArrowUp(Picture picture) {
    imageUp_(static_cast<int16_t>(ColorArrowType::Custom)).setPicture(std::move(picture));
}
void PictureLibrary::setCustomArrowDown(Picture picture) {
    imageDown_(static_cast<int16_t>(ColorArrowType::Custom)).setPicture(std::move(picture));
}

}  // namespace TabulonLib12
