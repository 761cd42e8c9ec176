#pragma once
// What every frame, panel, item, canvas, menu and notice is: an object that carries its users' data under
// keys.
#include <map>
#include <type_traits>

namespace brindle::tk {

class Object {
  public:
    Object() = default;
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;
    virtual ~Object() = default;

    // Hangs data on the object; null takes the key away. The object never owns or frees it.
    void set_key(int key, void *data);
    // What was hung on it under the key, or null.
    void *key(int key) const;

    // The same for a user's own enumeration of keys.
    template <class E>
    requires std::is_enum_v<E>
    void set_key(E key, void *data) { set_key(static_cast<int>(key), data); }
    template <class E>
    requires std::is_enum_v<E>
    void *key(E name) const { return key(static_cast<int>(name)); }

    // The key's data as a T, which must be what was put there; null when nothing was.
    template <class T, class K>
    T *key_as(K name) const {
        return static_cast<T *>(key(name));
    }

  private:
    std::map<int, void *> keys_;
};

}  // namespace brindle::tk
