#pragma once
// The pictures of the sample's payment column, drawn here: a green tick for a paid order and a
// red cross for an open one, 16 by 16 pixels. The sample's form names them as the image list
// "ImmaginiStato" of its form, which both hosts put on their window's form.
#include <memory>

#include "platform/host/host_services.h"
#include "platform/ui/graphics.h"

namespace TabulonLib12::Apps {

Picture PaidPicture();
Picture OpenPicture();
// The image list "ImmaginiStato": the paid picture, then the open one.
std::shared_ptr<ImageList> SampleImageList();

}  // namespace TabulonLib12::Apps
