#include "toolkit/object.hpp"

namespace brindle::tk {

void Object::set_key(int key, void *data) {
    if (data) {
        keys_[key] = data;
    } else {
        keys_.erase(key);
    }
}

void *Object::key(int key) const {
    const auto found = keys_.find(key);
    return found == keys_.end() ? nullptr : found->second;
}

}  // namespace brindle::tk
