#pragma once
// A control array: item 0 is designed, further items are created at run time as copies of it.
// Creating an index that exists fails, as does asking for an index that does not; the builders
// rely on both failures.
#include <cstdint>
#include <map>

#include "platform/runtime/error.h"
#include "surface.h"

namespace TabulonLib12 {

template <class T>
class ControlArray {
public:
    // Takes item 0, already created on the surface.
    explicit ControlArray(T& item0) : surface_(&item0.Owner()) {
        Register(item0, 0);
    }

    // Item `index`; a missing one fails with "Control array element 'n' doesn't exist" (340).
    T& operator()(int16_t index) const {
        auto it = items_.find(index);
        if (it == items_.end())
            throw Error(ErrorKind::OutOfBounds, 340,
                        "Control array element '" + std::to_string(index) + "' doesn't exist");
        return *it->second;
    }
    bool Exists(int16_t index) const { return items_.count(index) != 0; }

    // Load: a hidden copy of item 0. An existing index fails with "Object already loaded" (360);
    // a negative one with "Subscript out of range".
    T& Load(int16_t index) {
        if (index < 0) throw Error::OutOfBounds();
        if (Exists(index)) throw Error(ErrorKind::InvalidValue, 360, "Object already loaded");
        T& model = operator()(0);
        T& item = static_cast<T&>(surface_->CreateCopy(model, index));
        items_[index] = &item;
        return item;
    }
    // Unload: removes an item above 0. Item 0 cannot be unloaded at run time (362); a missing
    // index fails (340).
    void Unload(int16_t index) {
        T& item = operator()(index);
        if (index == 0)
            throw Error(ErrorKind::InvalidValue, 362, "Can't unload controls created at design time");
        items_.erase(index);
        surface_->Destroy(item);
    }

    int16_t LBound() const { return items_.begin()->first; }
    int16_t UBound() const { return items_.rbegin()->first; }
    int32_t Count() const { return static_cast<int32_t>(items_.size()); }
    const std::map<int16_t, T*>& Items() const { return items_; }

private:
    void Register(T& item, int16_t index) {
        surface_->SetArrayIndex(item, index);
        items_[index] = &item;
    }
    Surface* surface_;
    std::map<int16_t, T*> items_;
};

}  // namespace TabulonLib12
