#pragma once
// The host's image list as the control found it by name: the pictures of condition cells,
// picture-by-value cells and heading pictures come from it. It may be missing, or may be a
// control of that name that is no image list; either fails when a picture is asked for.
#include <memory>

#include "platform/host/host_services.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

class ImageListRef {
public:
    bool Present() const { return list_ != nullptr; }
    const std::shared_ptr<HostControl>& Object() const { return list_; }
    void Set(std::shared_ptr<HostControl> list) { list_ = std::move(list); }
    // Item `index` (1-based) of the list; fails with "Object variable not set" (91) when there is
    // no list, and as the host's control does for a bad index or a control that is no list.
    Picture Item(int32_t index) const {
        if (!list_) throw Error::MissingObject();
        return list_->ListImage(index);
    }

private:
    std::shared_ptr<HostControl> list_;
};

}  // namespace TabulonLib12
