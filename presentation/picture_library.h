#pragma once
// The picture library: image arrays inside the hidden frame FrameImmagini, indexed by the
// values of the style enumerations: the band textures (ImageStyle) and the sort arrows
// (ImageUP, ImageDown). The band and the sort take their pictures from here.
#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class PictureLibrary {
public:
    PictureLibrary(ImageElement& imageStyle, ImageElement& imageUp, ImageElement& imageDown);

    const ControlArray<ImageElement>& Styles() const { return imageStyle_; }
    const ControlArray<ImageElement>& ArrowsUp() const { return imageUp_; }
    const ControlArray<ImageElement>& ArrowsDown() const { return imageDown_; }

private:
    ControlArray<ImageElement> imageStyle_;
    ControlArray<ImageElement> imageUp_;
    ControlArray<ImageElement> imageDown_;
};

}  // namespace TabulonLib12
