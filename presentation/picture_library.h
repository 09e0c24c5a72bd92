#pragma once
// The picture library: image arrays inside the hidden frame FrameImmagini, indexed by the
// values of the style enumerations: the band textures (ImageStyle: 0 to 7, 99 and 100) and the
// sort arrows (ImageUP, ImageDown: 0 to 4 and 100). The band and the sort take their pictures
// from here; a value without an item fails with error 340. Items 100 start as their models (99
// for the textures, 0 for the arrows) and take the host's custom pictures.
#include <cstdint>

#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class PictureLibrary {
public:
    // Takes the designed items 0 and loads the others with the drawn pictures.
    PictureLibrary(ImageElement& imageStyle, ImageElement& imageUp, ImageElement& imageDown);

    Picture Style(int16_t style) const { return imageStyle_(style).GetPicture(); }
    Picture ArrowUp(int16_t colour) const { return imageUp_(colour).GetPicture(); }
    Picture ArrowDown(int16_t colour) const { return imageDown_(colour).GetPicture(); }

    // The host's own pictures in the Custom items.
    void setCustomStyle(Picture picture);
    void setCustomArrowUp(Picture picture);
    void setCustomArrowDown(Picture picture);

private:
    ControlArray<ImageElement> imageStyle_;
    ControlArray<ImageElement> imageUp_;
    ControlArray<ImageElement> imageDown_;
};

}  // namespace TabulonLib12
